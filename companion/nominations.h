// Nominations: which indexed files AI clients may know of, and which they may read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "store/connection.h"

namespace norvast {

// What an AI client may learn of a nominated file.
enum class Nomination { metadata, content };

// Each takes an absolute path, a file or a folder with all that is indexed below it, and gives the
// number of files that it was done for; nothing when the index could not be written.

std::optional<std::uint64_t> nominate(const Connection& index, const std::string& path,
                                      Nomination nomination);
std::optional<std::uint64_t> withdraw(const Connection& index, const std::string& path);

// Forgets the files: their rows go from every table. The files themselves stay.
std::optional<std::uint64_t> removeFromIndex(const Connection& index, const std::string& path);

}  // namespace norvast
