// File confinement: which files a process can still open, once it has given up all others.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace norvast::extractor {

enum class Confinement : std::uint8_t {
  complete,  // it holds
  unknown,   // the kernel has no such means (Landlock: Linux 5.13, and switched on)
  refused,   // it has them, and something refused them to this process
};

// From now on this process can open only what lies at or below `readable`, and only for reading;
// it can create, remove and start nothing. What is open already stays so; a path that does not
// exist is passed over. The process must have forgone new privileges. When the result is not
// `complete`, any file may still be opened: the caller has to prevent that by other means.
Confinement confineFiles(std::span<const std::string_view> readable);

}  // namespace norvast::extractor
