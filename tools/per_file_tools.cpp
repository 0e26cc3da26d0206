#include "tools/per_file_tools.h"

#include <string>
#include <utility>

#include "access/audit_trail.h"
#include "access/sensitive_path.h"
#include "store/nominated_files.h"
#include "tools/tool_result.h"

namespace norvast {

Json getMetadataTool(const Arguments& args, const MCPStore& store) {
  const std::string path = args.str("path");
  if (isSensitive(path)) {
    audit(store, {"metadata", path, "denied · sensitive path", Severity::deny});
    return textResult("Denied: sensitive path.", IsError::yes);
  }
  auto record = metadata(store, path);
  if (!record) {
    audit(store, {"metadata", path, "denied · not allowlisted", Severity::warn});
    return textResult("Not found or not nominated.", IsError::yes);
  }
  audit(store, {"metadata", path, "ok", Severity::ok});
  return textResult(jsonText(std::move(*record)), IsError::no);
}

Json getSummaryTool(const Arguments& args, const MCPStore& store) {
  const std::string path = args.str("path");
  auto text = summary(store, path);
  if (!text) {
    audit(store, {"summary", path, "denied · not allowlisted", Severity::warn});
    return textResult("No summary, or not nominated.", IsError::yes);
  }
  audit(store, {"summary", path, "ok", Severity::ok});
  return textResult(std::move(*text), IsError::no);
}

}  // namespace norvast
