#include "tools/library_search_tool.h"

#include <cstdint>
#include <string>
#include <utility>

#include "access/audit_trail.h"
#include "access/switch_files.h"
#include "store/library_queries.h"
#include "tools/tool_result.h"

namespace norvast {

Json searchLibraryTool(const Arguments& args, const ToolContext& context) {
  if (!isLibraryOn()) {
    return textResult(
        "Whole-library access is off. Enable it in the Norvast app (Settings) to discover across "
        "all files.",
        IsError::yes);
  }
  const std::string query = args.str("query");
  const std::int64_t limit = args.intArg("limit", 30);
  Json::Array results = searchLibrary(context.store, query, limit);

  const std::size_t count = results.size();
  audit(context.store,
        {"library-search", quoted(query) + AUDIT_SEPARATOR + std::to_string(count) + " hits",
         "ok · metadata only", Severity::ok});
  return textResult(jsonText(Json::Object{{"scope", "whole library (metadata only)"},
                                          {"count", count},
                                          {"results", std::move(results)}}),
                    IsError::no);
}

}  // namespace norvast
