#include "extractor/office/archive_reading.h"

#include <archive_entry.h>

#include <algorithm>

#include "document/reading_bounds.h"
#include "text/encoding.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

constexpr std::size_t BYTES_A_READ = std::size_t{64} << 10;

}  // namespace

// A few kilobytes can unpack to terabytes. Text packs to about a tenth, tables to a fiftieth; what
// is far beyond that was made to harm, unless it is small as a whole.
bool Unpacking::isOutOfProportion() const {
  return unpackedBytes_ > HARMLESS_UNPACKED_BYTES && unpackedBytes_ / MOST_RATIO > packedBytes_;
}

// An entry that was cut at a limit still counts: its beginning is text as it stands.
Unpacked Unpacking::readEntry(archive* reader, std::string& into) {
  std::size_t size = 0;
  while (size < MOST_PART_BYTES && unpackedBytes_ < MOST_UNPACKED_BYTES) {
    const std::size_t room = std::min(BYTES_A_READ, MOST_PART_BYTES - size);
    into.resize(size + room);
    const la_ssize_t count = archive_read_data(reader, into.data() + size, room);
    into.resize(size + static_cast<std::size_t>(std::max<la_ssize_t>(count, 0)));
    if (count < 0) return Unpacked::damaged;
    if (count == 0) return Unpacked::whole;
    size = into.size();
    unpackedBytes_ += static_cast<std::size_t>(count);
    if (isOutOfProportion()) return Unpacked::outOfProportion;
  }
  return Unpacked::cut;
}

std::string entryName(archive* reader, archive_entry* entry) {
  if (const char* utf8 = archive_entry_pathname_utf8(entry)) return utf8;
  const char* name = archive_entry_pathname(entry);
  if (name == nullptr) return {};
  // PKWARE, .ZIP File Format Specification, appendix D; other formats leave it to the system.
  const bool isZip = (archive_format(reader) & ARCHIVE_FORMAT_BASE_MASK) == ARCHIVE_FORMAT_ZIP;
  const auto decoded = decodedFrom(name, isZip ? "cp437" : "windows-1252");
  return decoded.value_or(repairUtf8(name));
}

}  // namespace norvast::extractor
