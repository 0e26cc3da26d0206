#include "tools/content_tool.h"

#include <cstdint>
#include <string>
#include <utility>

#include "access/audit_trail.h"
#include "access/sensitive_path.h"
#include "content/mcp_content.h"
#include "store/nominated_files.h"
#include "text/unicode.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

constexpr std::int64_t MOST_CHARACTERS = 60'000;  // bytes, for plain text

std::string successResult(const ExtractedText& content) {
  return std::string("ok")
      .append(AUDIT_SEPARATOR)
      .append(content.method)
      .append(AUDIT_SEPARATOR)
      .append(std::to_string(countClusters(content.text)))
      .append(" chars");
}

}  // namespace

Json readFileContentTool(const Arguments& args, const ToolContext& context) {
  const Deadline deadline = readingDeadline();  // the gates' waits for a busy index count too
  const std::string path = args.str("path");
  if (isSensitive(path)) {
    return refuse(context.store, {"read", path, "denied · sensitive path", Severity::deny},
                  "Denied: sensitive path.");
  }
  if (!isNominated(context.store, path)) {
    return refuse(context.store, {"read", path, "denied · not allowlisted", Severity::warn},
                  "Denied: not nominated.");
  }
  if (!isContentAllowed(context.store, path)) {
    return refuse(context.store, {"read", path, "denied · content reads off", Severity::warn},
                  "Denied: content reads are off for this file (metadata only).");
  }
  auto content = MCPContent::extract(path, MOST_CHARACTERS, deadline);
  if (!content) {
    return refuse(context.store, {"read", path, "no extractor", Severity::warn},
                  "No on-device text could be extracted from this file type.");
  }
  audit(context.store, {"read", path, successResult(*content), Severity::ok});
  return textResult(std::move(content->text), IsError::no);
}

}  // namespace norvast
