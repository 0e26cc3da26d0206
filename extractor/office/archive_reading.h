// Archive reading: libarchive's handle, and how it is opened over bytes in memory.
#pragma once

#include <archive.h>

#include <memory>
#include <string>
#include <string_view>

namespace norvast::extractor {

struct CloseArchive {
  void operator()(archive* reader) const { (void)archive_read_free(reader); }
};
using ArchiveReader = std::unique_ptr<archive, CloseArchive>;

// How much of an entry could be unpacked: all of it, its beginning up to a limit, nothing since it
// is damaged, or nothing since the file unpacks to far more than it should.
enum class Unpacked { whole, cut, damaged, outOfProportion };

// Unpacks the entries of one file, and holds all of them together to the limits in
// reading_bounds.h.
class Unpacking {
 public:
  explicit Unpacking(std::size_t packedBytes) : packedBytes_(packedBytes) {}

  // Appends the data of the reader's current entry to `into`, at most MOST_PART_BYTES of it.
  Unpacked readEntry(archive* reader, std::string& into);

 private:
  bool isOutOfProportion() const;

  std::size_t packedBytes_;
  std::size_t unpackedBytes_ = 0;
};

// Returns the name of the reader's current entry as UTF-8, empty if it has none. If the archive
// does not name the encoding, it is taken to be the one that most archives of that format are in.
std::string entryName(archive* reader, archive_entry* entry);

}  // namespace norvast::extractor
