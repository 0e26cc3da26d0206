#include "tools/call_tool.h"

#include "access/switch_files.h"
#include "tools/catalogue.h"
#include "tools/tool_result.h"

namespace norvast {

Json callTool(const std::string& name, const Arguments& arguments,
              const std::optional<MCPStore>& store,
              const std::optional<SentenceEmbedding>& sentence) {
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
  const Tool* tool = toolNamed(name);
  if (tool == nullptr) return textResult("Unknown tool: " + name, IsError::yes);
  store->limitTime();
  return tool->body(arguments, {*store, sentence});
}

}  // namespace norvast
