// Transaction: statements that are kept together or not at all.
#pragma once

#include "store/connection.h"

namespace norvast {

// Takes the write lock at once, and is rolled back unless it is committed.
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
