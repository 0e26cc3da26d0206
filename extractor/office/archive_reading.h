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

// What an entry's bytes came to.
enum class Unpacked { whole, cut, damaged, outOfProportion };

// Keeps account of all that is unpacked from one file: see reading_bounds.h.
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

// The name of the reader's current entry as UTF-8; empty when it has none. One that is in an
// encoding which the archive does not name is taken for what most archives of its format have then.
std::string entryName(archive* reader, archive_entry* entry);

}  // namespace norvast::extractor
