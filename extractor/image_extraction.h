// Image extraction: the text in the first picture of an image file, read in a locked-in process.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/descriptor.h"

namespace norvast {

// An Extraction. The recognised lines joined by single blanks.
std::optional<std::string> extractImage(const Descriptor& file, std::size_t limitClusters);

}  // namespace norvast
