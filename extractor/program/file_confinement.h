// File confinement: which files a process can still open, once it has given up all others.
#pragma once

#include <span>
#include <string_view>

namespace norvast::extractor {

// From now on this process can open only what lies at or below `readable`, and only for reading;
// it can create, remove and start nothing. What is open already stays so; a path that does not
// exist is passed over. The process must have forgone new privileges. True also where the kernel
// has no such means (Landlock: Linux 5.13); false when it has them and they failed.
bool confineFiles(std::span<const std::string_view> readable);

}  // namespace norvast::extractor
