#include "access/audit_trail.h"

#include <chrono>
#include <cstdint>

#include "store/statement.h"

namespace norvast {
namespace {

std::string textOf(Severity severity) {
  switch (severity) {
    case Severity::ok:
      return "ok";
    case Severity::warn:
      return "warn";
    case Severity::deny:
      break;
  }
  return "deny";
}

std::int64_t secondsSince1970() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

// Of one row, which takes less than a millisecond. A foreign database may hold a trigger without an
// end.
constexpr std::chrono::seconds MOST_WRITING_TIME{1};

}  // namespace

std::string quoted(std::string_view query) {
  return std::string(1, '"').append(query).append(1, '"');
}

void audit(const MCPStore& store, const AuditEvent& event) {
  store.wdb.limitTime(MOST_WRITING_TIME + std::chrono::milliseconds(BUSY_TIMEOUT_MILLISECONDS));
  Statement insert(store.wdb,
                   "INSERT INTO audit_event(ts,verb,object,result,severity) VALUES(?,?,?,?,?)");
  insert.bind(1, secondsSince1970());
  insert.bind(2, event.verb);
  insert.bind(3, event.object);
  insert.bind(4, event.result);
  insert.bind(5, textOf(event.severity));
  (void)insert.step();  // a row that cannot be written is lost: the answer does not depend on it
}

}  // namespace norvast
