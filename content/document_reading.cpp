#include "content/document_reading.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "content/file_kind.h"
#include "content/isolated_extraction.h"
#include "content/leading_bytes.h"
#include "content/scanned_document.h"
#include "platform/regular_file.h"
#include "text/encoding.h"
#include "text/file_name.h"

namespace norvast {
namespace {

// Of a file's text, in characters or bytes as its method counts: about two hundred pages.
constexpr std::size_t READ_CHARACTERS = 400'000;

using Text = std::variant<std::string, ReadFailure>;

// Of a file whose leading bytes have been read.
Text plainFileText(const RegularFile& file, std::string bytes) {
  if (file.sizeBytes == 0) return ReadFailure::noText;
  bytes += leadingBytes(file.descriptor, READ_CHARACTERS - bytes.size());
  const bool isCut = file.sizeBytes > bytes.size();
  auto text = decodedText(bytes, isCut ? Extent::leading : Extent::whole);
  // A NUL is no character of a text, and would cut what is stored.
  if (!text || text->find('\0') != std::string::npos) return ReadFailure::unreadableEncoding;
  if (text->empty()) return ReadFailure::noText;
  return std::move(*text);
}

std::variant<Document, ReadFailure> documentOf(Text read, const char* method) {
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  auto& text = std::get<std::string>(read);
  Document document;
  document.method = method;
  document.blocks.push_back({DocumentBlock::Kind::paragraph, std::move(text)});
  return document;
}

const char* programOf(std::string_view kind) {
  if (kind == "html" || kind == "xml" || kind == "rtf" || kind == "notebook" || kind == "manual") {
    return "norvast_extract_page";
  }
  if (kind == "mail" || kind == "mailbox") return "norvast_extract_mail";
  return kind.starts_with("old-") ? "norvast_extract_old_office" : "norvast_extract_document";
}

IsolatedReader readerOf(std::string_view kind) {
  return {programOf(kind), {std::string(kind), std::to_string(READ_CHARACTERS)}};
}

}  // namespace

std::variant<Document, ReadFailure> readDocument(const std::string& path,
                                                 const ReadingOptions& options) {
  if (access(path.c_str(), R_OK) != 0) {
    return errno == ENOENT ? ReadFailure::gone : ReadFailure::noPermission;
  }
  const auto file = openRegularFile(path);
  if (!file) return ReadFailure::noReader;
  std::string bytes = leadingBytes(file->descriptor, TELLING_BYTES);
  const FileKind kind = fileKind(pathExtension(path), bytes);
  switch (kind.way) {
    case FileKind::Way::text:
      return documentOf(plainFileText(*file, std::move(bytes)), "text");
    case FileKind::Way::pdf:
      return pdfWithScannedPages(*file, READ_CHARACTERS, options.languages);
    case FileKind::Way::image:
      return isolatedDocument(
          {"norvast_extract_image", {"photo", options.languages, std::to_string(READ_CHARACTERS)}},
          *file);
    case FileKind::Way::document:
      return isolatedDocument(readerOf(kind.kind), *file);
    case FileKind::Way::lies:
      return ReadFailure::decodingFailed;
    case FileKind::Way::none:
      break;
  }
  return ReadFailure::noReader;
}

}  // namespace norvast
