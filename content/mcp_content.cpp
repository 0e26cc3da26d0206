#include "content/mcp_content.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "content/utf8_file.h"
#include "platform/regular_file.h"
#include "text/file_name.h"

namespace norvast {
namespace {

// Its caller turns every reason into one message.
std::optional<std::string> withoutReason(std::variant<std::string, ReadFailure> read) {
  if (std::holds_alternative<ReadFailure>(read)) return std::nullopt;
  return std::move(std::get<std::string>(read));
}

std::optional<ExtractedText> labelled(std::optional<std::string> text, std::string_view method) {
  if (!text) return std::nullopt;
  return ExtractedText{std::move(*text), method};
}

}  // namespace

std::optional<ExtractedText> MCPContent::extract(const std::string& path, std::int64_t maxChars,
                                                 Deadline deadline) {
  if (maxChars < 1) return std::nullopt;
  const auto file = openRegularFile(path);
  if (!file) return std::nullopt;
  const auto limit = static_cast<std::size_t>(maxChars);
  const std::string extension = pathExtension(path);
  if (extension == "pdf")
    return labelled(withoutReason(isolatedPdfText(*file, limit, deadline)), "PDFKit");
  if (std::find(imageExts.begin(), imageExts.end(), extension) != imageExts.end()) {
    return labelled(withoutReason(isolatedImageText(*file, limit, deadline)), "Vision OCR");
  }
  return labelled(leadingUtf8(*file, limit), "text");
}

}  // namespace norvast
