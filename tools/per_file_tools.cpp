#include "tools/per_file_tools.h"

#include <string>
#include <utility>

#include "access/audit_trail.h"
#include "access/sensitive_path.h"
#include "store/nominated_files.h"
#include "tools/tool_result.h"

namespace norvast {

Json getMetadataTool(const Arguments& args, const ToolContext& context) {
  const std::string path = args.str("path");
  if (isSensitive(path)) {
    return refuse(context.store, {"metadata", path, "denied · sensitive path", Severity::deny},
                  "Denied: sensitive path.");
  }
  auto record = metadata(context.store, path);
  if (!record) {
    return refuse(context.store, {"metadata", path, "denied · not allowlisted", Severity::warn},
                  "Not found or not nominated.");
  }
  audit(context.store, {"metadata", path, "ok", Severity::ok});
  return textResult(jsonText(std::move(*record)), IsError::no);
}

Json getSummaryTool(const Arguments& args, const ToolContext& context) {
  const std::string path = args.str("path");
  auto text = summary(context.store, path);
  if (!text) {
    return refuse(context.store, {"summary", path, "denied · not allowlisted", Severity::warn},
                  "No summary, or not nominated.");
  }
  audit(context.store, {"summary", path, "ok", Severity::ok});
  return textResult(std::move(*text), IsError::no);
}

}  // namespace norvast
