// Faulty SQLite: lets the library's allocations and transfers fail in this process, counted.
#pragma once

#include <cstdint>

namespace norvast {

enum class Fault : std::uint8_t { allocation, read, write, lock };

// Puts itself between SQLite and the system. Once, before the first connection.
void makeSqliteFaulty();

// From now on: the call of that kind with the number `first` fails, counted from 0, and `count - 1`
// after it.
void armFault(Fault fault, long first, long count);

// Nothing fails any more. True when something has failed.
bool disarmFault();

}  // namespace norvast
