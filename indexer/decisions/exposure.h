// Exposure: the rows by which the server knows what it may show, kept in line with the rules.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "indexer/decisions/rules.h"
#include "store/connection.h"
#include "store/statement.h"

namespace norvast::indexer {

// What AI clients may learn of a nominated file.
enum class Nomination { metadata, content };

// What the rules let clients learn of the path; nothing: they do not see it.
std::optional<Nomination> nominationBy(const Rules& rules, const std::string& path);

// Writes rows of the exposure, within the caller's transaction; each is false when the index could
// not be written. Prepared once for a run of files.
class ExposureWriter {
 public:
  explicit ExposureWriter(const Connection& index);

  bool write(const std::string& path, std::optional<Nomination> nomination);

 private:
  Statement insert_;
  Statement remove_;
};

// Brings the rows of all indexed files at or below the path in line with the rules, in the
// transaction that changed these: the caller's. Rows that are right stay untouched. False when the
// index could not be read or written.
bool bringExposureInLine(const Connection& index, const Rules& rules, const std::string& path);

// The number of files at or below the path that clients see.
std::uint64_t countExposed(const Connection& index, const std::string& path);

}  // namespace norvast::indexer
