#include "tools/call_tool.h"

#include <string_view>

#include "access/switch_files.h"
#include "tools/arguments.h"
#include "tools/content_tool.h"
#include "tools/library_search_tool.h"
#include "tools/listing_tools.h"
#include "tools/per_file_tools.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

struct Tool {
  std::string_view name;
  Json (*body)(const Arguments& args, const MCPStore& store);
};

constexpr Tool TABLE[] = {
    {"list_files", listFilesTool},
    {"search_files", searchFilesTool},
    {"get_metadata", getMetadataTool},
    {"get_summary", getSummaryTool},
    {"list_tags", listTagsTool},
    {"traverse_package", traversePackageTool},
    {"read_file_content", readFileContentTool},
    {"search_library", searchLibraryTool},
};

}  // namespace

Json callTool(const std::string& name, const Json::Object& arguments,
              const std::optional<MCPStore>& store) {
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
    if (tool.name == name) return tool.body(Arguments(arguments), *store);
  }
  return textResult("Unknown tool: " + name, IsError::yes);
}

}  // namespace norvast
