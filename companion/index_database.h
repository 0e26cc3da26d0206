// Index database: creating and opening the index for writing, and recognising one that is ours.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "store/connection.h"

namespace norvast {

// Marks the database as made by this program ("Norv" in ASCII), and the version of its tables.
inline constexpr std::uint32_t INDEX_APPLICATION_ID = 0x4E6F7276;
inline constexpr std::uint32_t INDEX_VERSION = 1;

// The index of this user, open for writing; it and its folder are created when they are missing.
// In write-ahead mode, so that a running server goes on reading. Or, in
// one sentence for the user, why it cannot be used: it is then left untouched.
std::variant<Connection, std::string> openIndex();

// Collects statements of one transaction, which is rolled back unless it is committed.
class Transaction {
 public:
  explicit Transaction(const Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  // False when it could not begin, for another program holds the index or the disk is full. Nothing
  // may be written then: each statement would be kept on its own.
  explicit operator bool() const { return isOpen_; }

  // False when it could not be committed; nothing of it was then kept.
  bool commit();

 private:
  const Connection& connection_;
  bool isOpen_;
};

}  // namespace norvast
