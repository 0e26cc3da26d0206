#include "server/catalogue.h"

#include <initializer_list>
#include <utility>

#include "access/switch_files.h"

namespace norvast {
namespace {

struct Property {
  const char* name;
  const char* type;
  const char* description = nullptr;
};

// A schema without required properties has no "required" member at all.
Json definition(const char* name, const char* description,
                std::initializer_list<Property> properties,
                std::initializer_list<const char*> required) {
  Json::Object propertySchemas;
  for (const Property& property : properties) {
    Json::Object schema{{"type", property.type}};
    if (property.description != nullptr) schema["description"] = property.description;
    propertySchemas[property.name] = std::move(schema);
  }

  Json::Object inputSchema{{"type", "object"}, {"properties", std::move(propertySchemas)}};
  if (required.size() > 0) inputSchema["required"] = Json::Array(required.begin(), required.end());
  return Json::Object{
      {"name", name}, {"description", description}, {"inputSchema", std::move(inputSchema)}};
}

Json::Array nominatedTools() {
  return {
      definition("list_files",
                 "List the nominated files this server can see, paginated. Use offset to page "
                 "through the full set.",
                 {{"offset", "integer", "start index (default 0)"},
                  {"limit", "integer", "page size (default 200, max 1000)"}},
                 {}),
      definition("search_files", "Search nominated files by name substring. Returns metadata only.",
                 {{"query", "string", "substring to match in file names"},
                  {"limit", "integer", "max results (default 50, max 500)"}},
                 {"query"}),
      definition("semantic_search",
                 "Find nominated files by meaning using on-device sentence embeddings.",
                 {{"query", "string"}, {"limit", "integer"}}, {"query"}),
      definition("get_metadata",
                 "Get metadata (and summary if analysed) for one nominated file by path.",
                 {{"path", "string"}}, {"path"}),
      definition("get_summary", "Get the on-device AI summary for one nominated file by path.",
                 {{"path", "string"}}, {"path"}),
      definition("list_tags", "List entity tags across nominated files.", {}, {}),
      definition("traverse_package", "List nominated files under a folder or package path.",
                 {{"path", "string"}}, {"path"}),
      definition("read_file_content",
                 "Read the text of a nominated file (on-device extraction: PDFKit for PDFs, Vision "
                 "OCR for images, UTF-8 for text). GATED to nominated files; sensitive paths "
                 "always denied.",
                 {{"path", "string"}}, {"path"}),
      definition(
          "retrieve_passages",
          "RAG retrieval: return the most relevant PASSAGES (not whole files) for a query, "
          "using on-device passage embeddings. Each hit is {path, ord, text, similarity} — "
          "a short excerpt with a citation (path + passage index). Far cheaper than reading "
          "whole files and gives precise, quotable context. Scoped to nominated files whose "
          "content you're allowed to read.",
          {{"query", "string"}, {"limit", "integer", "passages to return (default 8, max 50)"}},
          {"query"}),
  };
}

Json::Array libraryTools() {
  return {
      definition("search_library",
                 "Search the user's ENTIRE indexed library (not just nominated files) by name, "
                 "tag, or on-device summary. Returns metadata + summaries only — NOT file content. "
                 "Each result includes `nominated`: if false, ask the user to nominate it before "
                 "reading its content.",
                 {{"query", "string"}, {"limit", "integer", "max results (default 30, max 200)"}},
                 {"query"}),
      definition("ask_norvast",
                 "Retrieve the most relevant on-device summaries from across the user's WHOLE "
                 "library to answer a natural-language question. Returns ranked {path, summary, "
                 "similarity, nominated} for you to synthesize an answer with citations. Grounding "
                 "is summaries/metadata only — to quote file content, ask the user to nominate the "
                 "cited files, then use read_file_content.",
                 {{"question", "string"},
                  {"limit", "integer", "passages to retrieve (default 8, max 30)"}},
                 {"question"}),
  };
}

}  // namespace

Catalogue buildCatalogue() { return {nominatedTools(), libraryTools()}; }

Json::Array currentTools(const Catalogue& catalogue) {
  Json::Array tools = catalogue.TOOLS;
  if (isLibraryOn()) {
    tools.insert(tools.end(), catalogue.LIBRARY_TOOLS.begin(), catalogue.LIBRARY_TOOLS.end());
  }
  return tools;
}

}  // namespace norvast
