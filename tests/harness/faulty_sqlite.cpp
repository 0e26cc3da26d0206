#include "tests/harness/faulty_sqlite.h"

#include <sqlite3.h>

#include <limits>
#include <map>

namespace norvast {
namespace {

struct Armed {
  Fault fault = Fault::allocation;
  long first = std::numeric_limits<long>::max();
  long count = 0;
  long calls = 0;
  bool hasFired = false;
};

Armed armed;
sqlite3_mem_methods memory{};
sqlite3_vfs faulty{};
sqlite3_vfs* real = nullptr;
std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods;  // ours by the real ones
const sqlite3_io_methods* realMethods = nullptr;

bool fails(Fault fault) {
  if (fault != armed.fault) return false;
  const long call = armed.calls++;
  const bool now = call >= armed.first && call - armed.first < armed.count;
  armed.hasFired = armed.hasFired || now;
  return now;
}

void* allocate(int bytes) { return fails(Fault::allocation) ? nullptr : memory.xMalloc(bytes); }

void* reallocate(void* old, int bytes) {
  return fails(Fault::allocation) ? nullptr : memory.xRealloc(old, bytes);
}

int readFile(sqlite3_file* file, void* into, int bytes, sqlite3_int64 at) {
  return fails(Fault::read) ? SQLITE_IOERR_READ : realMethods->xRead(file, into, bytes, at);
}

int writeFile(sqlite3_file* file, const void* from, int bytes, sqlite3_int64 at) {
  return fails(Fault::write) ? SQLITE_FULL : realMethods->xWrite(file, from, bytes, at);
}

int lockFile(sqlite3_file* file, int level) {
  return fails(Fault::lock) ? SQLITE_IOERR_LOCK : realMethods->xLock(file, level);
}

// Taking alone: a lock that the system did not give back would be held, and others would have to
// wait for it in vain.
int lockShared(sqlite3_file* file, int offset, int count, int flags) {
  return (flags & SQLITE_SHM_LOCK) != 0 && fails(Fault::lock)
             ? SQLITE_IOERR_SHMLOCK
             : realMethods->xShmLock(file, offset, count, flags);
}

// All files have the same methods here, those of POSIX locks, but for a table's address.
int openFile(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* file, int flags, int* given) {
  const int opened = real->xOpen(real, name, file, flags, given);
  if (opened != SQLITE_OK || file->pMethods == nullptr) return opened;
  realMethods = file->pMethods;
  sqlite3_io_methods& ours = methods[file->pMethods] = *file->pMethods;
  ours.xRead = readFile;
  ours.xWrite = writeFile;
  ours.xLock = lockFile;
  ours.xShmLock = lockShared;
  file->pMethods = &ours;
  return opened;
}

}  // namespace

void makeSqliteFaulty() {
  (void)sqlite3_config(SQLITE_CONFIG_GETMALLOC, &memory);
  sqlite3_mem_methods ours = memory;
  ours.xMalloc = allocate;
  ours.xRealloc = reallocate;
  (void)sqlite3_config(SQLITE_CONFIG_MALLOC, &ours);
  // Else SQLite sets memory aside for each connection and asks for none.
  (void)sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
  real = sqlite3_vfs_find(nullptr);
  faulty = *real;
  faulty.zName = "faulty";
  faulty.xOpen = openFile;
  (void)sqlite3_vfs_register(&faulty, 1);
}

void armFault(Fault fault, long first, long count) { armed = {fault, first, count, 0, false}; }

bool disarmFault() {
  const bool fired = armed.hasFired;
  armed = {};
  return fired;
}

}  // namespace norvast
