// Audit trail: the record, in the index database, of what the client looked at and was refused.
#pragma once

#include <string>
#include <string_view>

#include "store/mcp_store.h"

namespace norvast {

// Between the parts of a composite object or result: a blank, U+00B7 MIDDLE DOT, a blank.
inline constexpr const char* AUDIT_SEPARATOR = " · ";

// How an event stands out in the trail: "ok", "warn" or "deny".
enum class Severity { ok, warn, deny };

// A query as it stands in an object: between two quotation marks, with nothing escaped.
std::string quoted(std::string_view query);

struct AuditEvent {
  std::string verb;    // what the client did: "read", "library-search"
  std::string object;  // what it was done to: a path, or the query and how much came of it
  std::string result;  // the outcome in words
  Severity severity = Severity::ok;
};

// Adds one row to audit_event, stamped with the current time in whole seconds since 1970. The only
// write that the server ever makes. A row that cannot be written is lost without a report.
void audit(const MCPStore& store, const AuditEvent& event);

}  // namespace norvast
