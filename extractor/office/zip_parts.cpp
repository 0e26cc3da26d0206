#include "extractor/office/zip_parts.h"

#include <archive_entry.h>

#include <algorithm>
#include <utility>

#include "document/reading_bounds.h"
#include "extractor/office/archive_reading.h"

namespace norvast::extractor {
namespace {

// An office file with a password is no zip file: the container of older kinds (OLE) holds it, in a
// stream whose name is in UTF-16.
constexpr std::string_view OLE_SIGNATURE = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::string_view ENCRYPTED_STREAM{"E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32};

bool isEncryptedOffice(std::string_view bytes) {
  return bytes.starts_with(OLE_SIGNATURE) && bytes.find(ENCRYPTED_STREAM) != std::string_view::npos;
}

int hexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  const char small = static_cast<char>(digit | 0x20);
  return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

// The names in relationships are parts of a URI: "%20" stands for a blank (RFC 3986, section 2.1).
// A percent sign without two digits behind it stands for itself.
std::string withoutPercents(std::string_view reference) {
  std::string text;
  for (std::size_t at = 0; at < reference.size(); ++at) {
    if (reference[at] == '%' && at + 2 < reference.size()) {
      const int high = hexDigit(reference[at + 1]);
      const int low = hexDigit(reference[at + 2]);
      if (high >= 0 && low >= 0) {
        text += static_cast<char>(high * 16 + low);
        at += 2;
        continue;
      }
    }
    text += reference[at];
  }
  return text;
}

}  // namespace

std::variant<ZipParts, ReadFailure> readZipParts(
    std::string_view bytes, const std::function<bool(std::string_view name)>& isWanted) {
  if (isEncryptedOffice(bytes)) return ReadFailure::encrypted;
  if (!bytes.starts_with("PK")) return ReadFailure::decodingFailed;
  const ArchiveReader reader(archive_read_new());
  if (!reader || archive_read_support_format_zip_seekable(reader.get()) != ARCHIVE_OK ||
      archive_read_open_memory(reader.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) {
    return ReadFailure::decodingFailed;
  }
  ZipParts parts;
  Unpacking unpacking(bytes.size());
  for (std::size_t count = 0;; ++count) {
    archive_entry* entry = nullptr;
    const int found = archive_read_next_header(reader.get(), &entry);
    if (found == ARCHIVE_EOF) return parts;
    if (found < ARCHIVE_WARN) return ReadFailure::decodingFailed;
    if (count == MOST_ENTRIES) return ReadFailure::tooLarge;
    std::string name = entryName(reader.get(), entry);
    if (!isWanted(name)) continue;
    if (archive_entry_is_encrypted(entry) != 0) return ReadFailure::encrypted;
    ZipPart part;
    const Unpacked unpacked = unpacking.readEntry(reader.get(), part.bytes);
    if (unpacked == Unpacked::damaged) return ReadFailure::decodingFailed;
    if (unpacked == Unpacked::outOfProportion) return ReadFailure::tooLarge;
    part.isCut = unpacked == Unpacked::cut;
    parts.emplace(std::move(name), std::move(part));
  }
}

const ZipPart* findPart(const ZipParts& parts, std::string_view name) {
  const auto found = parts.find(name);
  return found == parts.end() ? nullptr : &found->second;
}

// As in RFC 3986, section 5.2.4: "." is the folder at hand, ".." the one around it. One ".." too
// many stays at the top.
std::string resolvedPartName(std::string_view from, std::string_view reference) {
  const std::string target = withoutPercents(reference.substr(0, reference.find('#')));
  std::string name;
  std::string_view rest = target;
  if (rest.starts_with('/')) {
    rest.remove_prefix(1);
  } else {
    name = from.substr(0, from.rfind('/') + 1);  // npos + 1 is 0: at the top
  }
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string_view step = rest.substr(0, end);
    if (step == "..") {
      if (!name.empty()) name.resize(name.rfind('/', name.size() - 2) + 1);
    } else if (step != ".") {
      name += step;
      if (end < rest.size()) name += '/';
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return name;
}

}  // namespace norvast::extractor
