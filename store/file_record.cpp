#include "store/file_record.h"

#include "text/decimal_integer.h"
#include "text/internet_date_time.h"

namespace norvast {

Json::Object fileDict(const std::vector<std::string>& row) {
  Json::Object record{{"path", row.at(0)}, {"name", row.at(1)}, {"ext", row.at(2)}};
  const auto column = [&row](std::size_t at) { return at < row.size() ? row[at] : std::string(); };
  if (const std::string group = column(3); !group.empty()) record["type_group"] = group;
  if (const auto size = parseDecimalInteger(column(4))) record["size_bytes"] = *size;
  if (const auto modified = parseDecimalInteger(column(5))) {
    record["modified"] = internetDateTime(*modified);
  }
  return record;
}

}  // namespace norvast
