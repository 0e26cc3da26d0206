// Isolated extraction: the text of a PDF or an image, taken by a program of its own, so that no
// file can harm the one that asks.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/regular_file.h"

namespace norvast {

// The first `limitClusters` user-perceived characters of the text of a PDF document, or of what is
// recognised in an image file, as UTF-8. Nothing when there is none, when it cannot be decoded in
// 30 s of time and in bounded memory, or when the program is not installed. Takes no part of the
// file into this process; what comes back is not trusted.
std::optional<std::string> isolatedPdfText(const RegularFile& file, std::size_t limitClusters);
std::optional<std::string> isolatedImageText(const RegularFile& file, std::size_t limitClusters);

}  // namespace norvast
