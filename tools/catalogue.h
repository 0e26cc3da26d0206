// Tool catalogue: the eleven tools, what the client's language model is told of each, and what
// carries it out.
#pragma once

#include <string_view>
#include <vector>

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// Whose files a tool is about: those that the user nominated, or all that are indexed.
enum class Reach { nominated, library };

enum class Presence { optional, required };

// One argument, as the schema has it.
struct Property {
  const char* name;
  const char* type;         // of JSON Schema: "string" or "integer"
  const char* description;  // nullptr: the schema has none
  Presence presence = Presence::optional;
};

struct Tool {
  std::string_view name;
  Reach reach;
  const char* description;
  std::vector<Property> properties;
  Json (*body)(const Arguments& args, const ToolContext& context);
};

// The tool of that very name, whether or not it is offered at the moment; nullptr when there is
// none.
const Tool* toolNamed(std::string_view name);

// The definitions, {"name", "description", "inputSchema"} each, in catalogue order; built once at
// start-up. Nine tools about nominated files, and two that reach the whole library.
struct Catalogue {
  Json::Array TOOLS;
  Json::Array LIBRARY_TOOLS;
};

Catalogue buildCatalogue();

// The definitions to offer now: the two library tools are among them only while whole-library
// access is on.
Json::Array currentTools(const Catalogue& catalogue);

}  // namespace norvast
