#include "extractor/office/packed_reader.h"

#include <archive_entry.h>

#include <clocale>
#include <string>

#include "document/reading_bounds.h"
#include "document/text_markup.h"
#include "extractor/manual/manual_reader.h"
#include "extractor/markup/html_reader.h"
#include "extractor/markup/xml_document_reader.h"
#include "extractor/office/archive_reading.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// All that a zip archive without files consists of begins so: libarchive does not take it for one.
constexpr std::string_view EMPTY_ZIP = "PK\x05\x06";

// What is packed is taken by its first bytes, whatever its name says. "raw" takes the bytes of a
// single file behind any number of filters; "empty" takes a file of no bytes.
// All of these are within libarchive itself; for others it would start programs.
ArchiveReader openPacked(std::string_view bytes) {
  ArchiveReader reader(archive_read_new());
  if (!reader) return reader;
  archive* raw = reader.get();
  for (const auto support :
       {archive_read_support_filter_gzip, archive_read_support_filter_bzip2,
        archive_read_support_filter_xz, archive_read_support_filter_lzma,
        archive_read_support_filter_zstd, archive_read_support_filter_lz4,
        archive_read_support_filter_compress, archive_read_support_format_zip_seekable,
        archive_read_support_format_tar, archive_read_support_format_7zip,
        archive_read_support_format_rar, archive_read_support_format_rar5,
        archive_read_support_format_iso9660, archive_read_support_format_cab,
        archive_read_support_format_ar, archive_read_support_format_cpio,
        archive_read_support_format_raw, archive_read_support_format_empty}) {
    (void)support(raw);  // what is missing reads nothing
  }
  if (archive_read_open_memory(raw, bytes.data(), bytes.size()) != ARCHIVE_OK) return nullptr;
  return reader;
}

// Where no entry could be read: even the names may be encrypted.
ReadFailure reasonOf(archive* reader) {
  const bool isEncrypted = reader != nullptr && archive_read_has_encrypted_entries(reader) == 1;
  return isEncrypted ? ReadFailure::encrypted : ReadFailure::decodingFailed;
}

ReadDocument readNames(archive* reader, archive_entry* entry, std::size_t limitCharacters) {
  DocumentBuilder document("file names", limitCharacters);
  std::string names;
  int found = ARCHIVE_OK;
  for (std::size_t count = 0; found != ARCHIVE_EOF; ++count) {
    if (found < ARCHIVE_WARN) return reasonOf(reader);
    if (count == MOST_ENTRIES || names.size() > limitCharacters) break;
    names += entryName(reader, entry) + "\n";
    found = archive_read_next_header(reader, &entry);
  }
  document.addLines(Kind::paragraph, names);
  return document.take();
}

// A text that is packed alone, as manual pages and change logs are in /usr/share. It is read by the
// marks in it as it would be unpacked; when these turn out to be none, it is a plain text.
ReadDocument readOneText(archive* reader, std::size_t packedBytes, std::size_t limitCharacters) {
  std::string bytes;
  const Unpacked unpacked = Unpacking(packedBytes).readEntry(reader, bytes);
  if (unpacked == Unpacked::damaged) return ReadFailure::decodingFailed;
  if (unpacked == Unpacked::outOfProportion) return ReadFailure::tooLarge;
  if (bytes.find('\0') != std::string::npos) return ReadFailure::noReader;
  const TextMarkup markup = markupOf(bytes);
  if (markup == TextMarkup::postScript) return ReadFailure::noReader;
  if (markup == TextMarkup::html) return readHtml(bytes, limitCharacters);
  if (markup == TextMarkup::manual || markup == TextMarkup::xml) {
    const auto read = markup == TextMarkup::manual ? readManual : readXml;
    auto document = read(bytes, limitCharacters);
    if (std::holds_alternative<Document>(document)) return document;
  }
  const auto text = decodedText(bytes, unpacked == Unpacked::cut ? Extent::leading : Extent::whole);
  if (!text) return ReadFailure::unreadableEncoding;
  DocumentBuilder document("text", limitCharacters);
  document.addLines(Kind::paragraph, *text);
  return document.take();
}

}  // namespace

void preparePacked() {
  // libarchive gives names only as far as the locale can write them.
  (void)std::setlocale(LC_CTYPE, "C.UTF-8");
}

ReadDocument readPacked(std::string_view bytes, std::size_t limitCharacters) {
  if (bytes.starts_with(EMPTY_ZIP)) return ReadFailure::noText;
  const ArchiveReader reader = openPacked(bytes);
  archive_entry* entry = nullptr;
  const int found = reader ? archive_read_next_header(reader.get(), &entry) : ARCHIVE_FATAL;
  if (found < ARCHIVE_WARN) return reasonOf(reader.get());
  if (found == ARCHIVE_EOF) return ReadFailure::noText;
  if (archive_format(reader.get()) != ARCHIVE_FORMAT_RAW) {
    return readNames(reader.get(), entry, limitCharacters);
  }
  // Bytes that are not packed at all come through as well.
  if (archive_filter_count(reader.get()) < 2) return ReadFailure::decodingFailed;
  return readOneText(reader.get(), bytes.size(), limitCharacters);
}

}  // namespace norvast::extractor
