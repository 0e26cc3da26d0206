#include "tools/catalogue.h"

#include <algorithm>
#include <utility>

#include "access/switch_files.h"
#include "tools/content_tool.h"
#include "tools/library_answer_tool.h"
#include "tools/library_search_tool.h"
#include "tools/listing_tools.h"
#include "tools/passage_retrieval_tool.h"
#include "tools/per_file_tools.h"
#include "tools/semantic_search_tool.h"

namespace norvast {
namespace {

constexpr Property PATH{"path", "string", nullptr, Presence::required};
constexpr Property QUERY{"query", "string", nullptr, Presence::required};

const std::vector<Tool>& table() {
  static const std::vector<Tool> TABLE = {
      {"list_files",
       Reach::nominated,
       "List the nominated files this server can see, paginated. Use offset to page through the "
       "full set.",
       {{"offset", "integer", "start index (default 0)"},
        {"limit", "integer", "page size (default 200, max 1000)"}},
       listFilesTool},
      {"search_files",
       Reach::nominated,
       "Search nominated files by name substring. Returns metadata only.",
       {{"query", "string", "substring to match in file names", Presence::required},
        {"limit", "integer", "max results (default 50, max 500)"}},
       searchFilesTool},
      {"semantic_search",
       Reach::nominated,
       "Find nominated files by meaning using on-device sentence embeddings.",
       {QUERY, {"limit", "integer", nullptr}},
       semanticSearchTool},
      {"get_metadata",
       Reach::nominated,
       "Get metadata (and summary if analysed) for one nominated file by path.",
       {PATH},
       getMetadataTool},
      {"get_summary",
       Reach::nominated,
       "Get the on-device AI summary for one nominated file by path.",
       {PATH},
       getSummaryTool},
      {"list_tags", Reach::nominated, "List entity tags across nominated files.", {}, listTagsTool},
      {"traverse_package",
       Reach::nominated,
       "List nominated files under a folder or package path.",
       {PATH},
       traversePackageTool},
      {"read_file_content",
       Reach::nominated,
       "Read the text of a nominated file (on-device extraction: PDFKit for PDFs, Vision OCR for "
       "images, UTF-8 for text). GATED to nominated files; sensitive paths always denied.",
       {PATH},
       readFileContentTool},
      {"retrieve_passages",
       Reach::nominated,
       "RAG retrieval: return the most relevant PASSAGES (not whole files) for a query, using "
       "on-device passage embeddings. Each hit is {path, ord, text, similarity} — a short excerpt "
       "with a citation (path + passage index). Far cheaper than reading whole files and gives "
       "precise, quotable context. Scoped to nominated files whose content you're allowed to read.",
       {QUERY, {"limit", "integer", "passages to return (default 8, max 50)"}},
       retrievePassagesTool},
      {"search_library",
       Reach::library,
       "Search the user's ENTIRE indexed library (not just nominated files) by name, tag, or "
       "on-device summary. Returns metadata + summaries only — NOT file content. Each result "
       "includes `nominated`: if false, ask the user to nominate it before reading its content.",
       {QUERY, {"limit", "integer", "max results (default 30, max 200)"}},
       searchLibraryTool},
      {"ask_norvast",
       Reach::library,
       "Retrieve the most relevant on-device summaries from across the user's WHOLE library to "
       "answer a natural-language question. Returns ranked {path, summary, similarity, nominated} "
       "for you to synthesize an answer with citations. Grounding is summaries/metadata only — to "
       "quote file content, ask the user to nominate the cited files, then use read_file_content.",
       {{"question", "string", nullptr, Presence::required},
        {"limit", "integer", "passages to retrieve (default 8, max 30)"}},
       askNorvastTool},
  };
  return TABLE;
}

// A schema without required properties has no "required" member at all.
Json inputSchema(const std::vector<Property>& properties) {
  Json::Object schemas;
  Json::Array required;
  for (const Property& property : properties) {
    Json::Object schema{{"type", property.type}};
    if (property.description != nullptr) schema["description"] = property.description;
    schemas[property.name] = std::move(schema);
    if (property.presence == Presence::required) required.emplace_back(property.name);
  }
  Json::Object schema{{"type", "object"}, {"properties", std::move(schemas)}};
  if (!required.empty()) schema["required"] = std::move(required);
  return schema;
}

}  // namespace

const Tool* toolNamed(std::string_view name) {
  const auto found = std::find_if(table().begin(), table().end(),
                                  [name](const Tool& tool) { return tool.name == name; });
  return found == table().end() ? nullptr : &*found;
}

Catalogue buildCatalogue() {
  Catalogue catalogue;
  for (const Tool& tool : table()) {
    Json::Array& list = tool.reach == Reach::library ? catalogue.LIBRARY_TOOLS : catalogue.TOOLS;
    list.emplace_back(Json::Object{{"name", tool.name},
                                   {"description", tool.description},
                                   {"inputSchema", inputSchema(tool.properties)}});
  }
  return catalogue;
}

Json::Array currentTools(const Catalogue& catalogue) {
  Json::Array tools = catalogue.TOOLS;
  if (isLibraryOn()) {
    tools.insert(tools.end(), catalogue.LIBRARY_TOOLS.begin(), catalogue.LIBRARY_TOOLS.end());
  }
  return tools;
}

}  // namespace norvast
