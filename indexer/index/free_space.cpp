#include "indexer/index/free_space.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

#include "store/statement.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

// Free pages below this part of all are soon filled again.
constexpr std::int64_t SPARE_DIVISOR = 20;

// What one step gives back: some ten milliseconds.
constexpr std::int64_t PAGES_A_STEP = 1000;

constexpr auto BETWEEN_STEPS = std::chrono::milliseconds(5);

// Begun as a writer: one that only becomes it fails at once when another was quicker.
bool giveBackPages(const Connection& index) {
  Transaction transaction(index);
  return transaction &&
         Statement(index, "PRAGMA incremental_vacuum(" + std::to_string(PAGES_A_STEP) + ")")
             .run() &&
         transaction.commit();
}

std::int64_t number(const Connection& index, const std::string& sql) {
  Statement statement(index, sql);
  return statement.step() ? statement.integer(0) : 0;
}

}  // namespace

void giveBackSpace(const Connection& index) {
  std::int64_t free = number(index, "PRAGMA freelist_count");
  if (free > number(index, "PRAGMA page_count") / SPARE_DIVISOR) {
    for (std::int64_t left = free; left > 0 && giveBackPages(index); left = free) {
      free = number(index, "PRAGMA freelist_count");
      if (free >= left) break;  // an index of an earlier version keeps its pages
      std::this_thread::sleep_for(BETWEEN_STEPS);
    }
  }
  // The first works the log off while others write; little is left for the second, which waits for
  // them and makes them wait.
  (void)Statement(index, "PRAGMA wal_checkpoint(PASSIVE)").run();
  (void)Statement(index, "PRAGMA wal_checkpoint(TRUNCATE)").run();
}

}  // namespace norvast::indexer
