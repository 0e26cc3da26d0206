// MCPContent: the text of one file, taken by its extension: PDF text, recognised image text, or
// UTF-8.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "content/isolated_extraction.h"

namespace norvast {

struct ExtractedText {
  std::string text;         // UTF-8, never empty
  std::string_view method;  // "PDFKit", "Vision OCR" or "text"
};

class MCPContent {
 public:
  MCPContent() = delete;

  // Lower-case extensions of the files whose text is recognised.
  static constexpr std::array<std::string_view, 10> imageExts = {
      "png", "jpg", "jpeg", "heic", "heif", "tiff", "tif", "gif", "bmp", "webp"};

  // The text of the regular file at `path` with the method's name. `maxChars` counts user-perceived
  // characters for PDFs and images, and bytes for all other files; below 1 there is no text. What
  // the file holds does not choose the method. Nothing when there is no text, whatever the reason:
  // for PDFs and images also when it has not come by the deadline.
  static std::optional<ExtractedText> extract(const std::string& path, std::int64_t maxChars,
                                              Deadline deadline = readingDeadline());
};

}  // namespace norvast
