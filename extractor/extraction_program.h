// Extraction program: what the programs have in common that take the text out of one kind of
// document: from standard input, to standard output.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace norvast {

// Gives up everything but what its kind of document needs, for good, then reads the file: its text
// as UTF-8, the first `limitClusters` user-perceived characters of it. Nothing when there is none.
using Extraction = std::optional<std::string> (*)(const Descriptor& file,
                                                  std::size_t limitClusters);

// Sets the process's limits, runs the extraction with `limit`, a decimal number, and writes its
// text. The exit status: 0 when all of a text has been written, else 1. Call it once, and end with
// it at once: nothing that a library prints goes to standard output or error afterwards.
int runExtraction(Extraction extract, std::string_view limit);

}  // namespace norvast
