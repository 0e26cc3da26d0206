// PDF extraction: the text of a PDF document, read in a locked-in process.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/descriptor.h"

namespace norvast {

// An Extraction. The pages in their order with an empty line between them.
std::optional<std::string> extractPdf(const Descriptor& file, std::size_t limitClusters);

}  // namespace norvast
