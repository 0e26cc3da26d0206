#include "store/settings.h"

#include <vector>

#include "store/statement.h"

namespace norvast {

std::optional<std::string> setting(const Connection& index, const std::string& name) {
  Statement statement(index, "SELECT value FROM setting WHERE name = ?", std::vector{name});
  if (!statement.step()) return std::nullopt;
  return statement.text(0);
}

bool storeSetting(const Connection& index, const std::string& name, const std::string& value) {
  return Statement(index, "INSERT OR REPLACE INTO setting(name,value) VALUES(?,?)",
                   std::vector{name, value})
      .run();
}

}  // namespace norvast
