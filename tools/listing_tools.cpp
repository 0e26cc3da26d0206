#include "tools/listing_tools.h"

#include <cstdint>
#include <string>
#include <utility>

#include "access/audit_trail.h"
#include "store/nominated_files.h"
#include "store/tags.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

constexpr std::int64_t MOST_MEMBERS = 200;

}  // namespace

Json listFilesTool(const Arguments& args, const ToolContext& context) {
  const std::int64_t offset = args.intArg("offset", 0);
  const std::int64_t limit = args.intArg("limit", 200);
  Json::Array results = listFiles(context.store, offset, limit);
  const std::int64_t total = countNominations(context.store);

  const std::size_t count = results.size();
  const std::string object = "offset " + std::to_string(offset) + AUDIT_SEPARATOR +
                             std::to_string(count) + " of " + std::to_string(total);
  audit(context.store, {"list", object, "ok", Severity::ok});
  return textResult(
      jsonText(Json::Object{
          {"total", total}, {"offset", offset}, {"count", count}, {"results", std::move(results)}}),
      IsError::no);
}

Json searchFilesTool(const Arguments& args, const ToolContext& context) {
  const std::string query = args.str("query");
  const std::int64_t limit = args.intArg("limit", 50);
  Json::Array results = searchFiles(context.store, query, limit);

  const std::size_t count = results.size();
  const std::string object =
      "name~" + quoted(query) + AUDIT_SEPARATOR + std::to_string(count) + " hits";
  audit(context.store, {"search", object, "ok", Severity::ok});
  return textResult(jsonText(Json::Object{{"count", count}, {"results", std::move(results)}}),
                    IsError::no);
}

Json traversePackageTool(const Arguments& args, const ToolContext& context) {
  const std::string path = args.str("path");
  Json::Array members = packageMembers(context.store, path, MOST_MEMBERS);

  const std::size_t count = members.size();
  audit(context.store,
        {"traverse", path + AUDIT_SEPARATOR + std::to_string(count), "ok", Severity::ok});
  return textResult(jsonText(Json::Object{{"count", count}, {"members", std::move(members)}}),
                    IsError::no);
}

Json listTagsTool(const Arguments& /*args*/, const ToolContext& context) {
  Json::Array list;
  for (const std::string& tag : tags(context.store)) list.emplace_back(tag);
  audit(context.store, {"tags", std::to_string(list.size()) + " tags", "ok", Severity::ok});
  return textResult(jsonText(std::move(list)), IsError::no);
}

}  // namespace norvast
