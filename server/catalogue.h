// Tool catalogue: what the client's language model is told of the tools.
#pragma once

#include "json/json.h"

namespace norvast {

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
