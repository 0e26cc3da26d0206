#include "store/transaction.h"

#include "store/statement.h"

namespace norvast {

Transaction::Transaction(const Connection& connection)
    : connection_(connection), isOpen_(Statement(connection, "BEGIN IMMEDIATE").run()) {}

Transaction::~Transaction() {
  if (isOpen_) (void)Statement(connection_, "ROLLBACK").run();
}

bool Transaction::commit() {
  if (!isOpen_ || !Statement(connection_, "COMMIT").run()) return false;
  isOpen_ = false;
  return true;
}

}  // namespace norvast
