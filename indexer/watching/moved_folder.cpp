#include "indexer/watching/moved_folder.h"

#include <vector>

#include "indexer/decisions/moved_rules.h"
#include "indexer/decisions/path_range.h"
#include "indexer/index/index_schema.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

bool clear(const Connection& index, const std::string& table, const PathRange& range) {
  return Statement(index, "DELETE FROM " + table + " WHERE " + PathRange::condition(),
                   range.binds())
      .run();
}

bool move(const Connection& index, const std::string& table, const std::string& column,
          const PathRange& from, const PathRange& to) {
  return Statement(index,
                   "UPDATE OR REPLACE " + table + " SET " + column + " = ? || substr(" + column +
                       ", length(?) + 1) WHERE " + PathRange::condition(column),
                   std::vector{to.path, from.path, from.path, from.firstBelow, from.firstBehind})
      .run();
}

bool moveAll(const Connection& index, const PathRange& from, const PathRange& to) {
  for (const char* table : FILE_TABLES) {
    if (!clear(index, table, to) || !move(index, table, "path", from, to)) return false;
  }
  return move(index, "root", "path", from, to) && move(index, "exclusion", "root", from, to) &&
         carryRules(index, from.path, to.path);
}

}  // namespace

bool moveRows(const Connection& index, const std::string& from, const std::string& to) {
  const PathRange source(from);
  const PathRange target(to);
  if (source.contains(to) || target.contains(from)) return false;
  Transaction transaction(index);
  return transaction && moveAll(index, source, target) && transaction.commit();
}

}  // namespace norvast::indexer
