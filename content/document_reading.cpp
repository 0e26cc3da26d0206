#include "content/document_reading.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "content/isolated_extraction.h"
#include "content/mcp_content.h"
#include "content/utf8_file.h"
#include "platform/regular_file.h"
#include "text/file_name.h"

namespace norvast {
namespace {

// Of a file's text, in characters or bytes as its method counts: about two hundred pages.
constexpr std::size_t READ_CHARACTERS = 400'000;

using Text = std::variant<std::string, ReadFailure>;

Text plainFileText(const RegularFile& file) {
  if (file.sizeBytes == 0) return ReadFailure::noText;
  auto text = leadingUtf8(file, READ_CHARACTERS);
  if (!text) return ReadFailure::unreadableEncoding;
  return std::move(*text);
}

std::variant<Document, ReadFailure> documentOf(Text read, const char* method) {
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  auto& text = std::get<std::string>(read);
  // A NUL is no character of a text, and would cut what is stored.
  if (text.find('\0') != std::string::npos) return ReadFailure::unreadableEncoding;
  Document document;
  document.method = method;
  document.blocks.push_back({DocumentBlock::Kind::paragraph, std::move(text)});
  return document;
}

bool isImage(const std::string& extension) {
  const auto& images = MCPContent::imageExts;
  return std::find(images.begin(), images.end(), extension) != images.end();
}

}  // namespace

std::variant<Document, ReadFailure> readDocument(const std::string& path) {
  if (access(path.c_str(), R_OK) != 0) {
    return errno == ENOENT ? ReadFailure::gone : ReadFailure::noPermission;
  }
  const auto file = openRegularFile(path);
  if (!file) return ReadFailure::noReader;
  const std::string extension = pathExtension(path);
  if (extension == "pdf") return documentOf(isolatedPdfText(*file, READ_CHARACTERS), "PDFKit");
  if (isImage(extension)) {
    return documentOf(isolatedImageText(*file, READ_CHARACTERS), "Vision OCR");
  }
  return documentOf(plainFileText(*file), "text");
}

}  // namespace norvast
