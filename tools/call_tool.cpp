#include "tools/call_tool.h"

#include <string_view>
#include <variant>

#include "access/switch_files.h"
#include "tools/content_tool.h"
#include "tools/library_answer_tool.h"
#include "tools/library_search_tool.h"
#include "tools/listing_tools.h"
#include "tools/passage_retrieval_tool.h"
#include "tools/per_file_tools.h"
#include "tools/semantic_search_tool.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

using Sentence = std::optional<SentenceEmbedding>;
using Body = Json (*)(const Arguments&, const MCPStore&);
using SemanticBody = Json (*)(const Arguments&, const MCPStore&, const Sentence&);

struct Tool {
  std::string_view name;
  std::variant<Body, SemanticBody> body;
};

constexpr Tool TABLE[] = {
    {"list_files", listFilesTool},
    {"search_files", searchFilesTool},
    {"semantic_search", semanticSearchTool},
    {"retrieve_passages", retrievePassagesTool},
    {"get_metadata", getMetadataTool},
    {"get_summary", getSummaryTool},
    {"list_tags", listTagsTool},
    {"traverse_package", traversePackageTool},
    {"read_file_content", readFileContentTool},
    {"search_library", searchLibraryTool},
    {"ask_norvast", askNorvastTool},
};

Json run(const Tool& tool, const Arguments& args, const MCPStore& store, const Sentence& sentence) {
  if (const auto* body = std::get_if<SemanticBody>(&tool.body))
    return (*body)(args, store, sentence);
  return std::get<Body>(tool.body)(args, store);
}

}  // namespace

Json callTool(const std::string& name, const Arguments& arguments,
              const std::optional<MCPStore>& store, const Sentence& sentence) {
  if (isAccessOff()) {
    return textResult(
        "Norvast AI access is turned off. Turn it back on in the Norvast app (AI access tab) to "
        "read your files.",
        IsError::yes);
  }
  if (!store) {
    return textResult("No Norvast index found. Open the Norvast app and index a folder first.",
                      IsError::yes);
  }
  for (const Tool& tool : TABLE) {
    if (tool.name == name) return run(tool, arguments, *store, sentence);
  }
  return textResult("Unknown tool: " + name, IsError::yes);
}

}  // namespace norvast
