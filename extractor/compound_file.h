// Compound file: the streams in a file of the format in which older office programs keep theirs
// ([MS-CFB]). Debian's library for it brings a dozen others, which took longer to load than a file
// takes to read.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "extractor/document_builder.h"

namespace norvast {

class CompoundFile {
 public:
  // The bytes outlive the file. Nothing when they are no compound file.
  static std::optional<CompoundFile> open(std::string_view bytes);

  // Names are ASCII, and the same in capitals and small letters.
  bool hasStream(std::string_view name) const;

  // The stream of that name: its first MOST_STREAM_BYTES; nothing when there is none, or
  // not all of it.
  std::optional<std::string> stream(std::string_view name) const;

  // The folders whose names begin so, each as a file of its own, in the order of their names.
  std::vector<CompoundFile> folders(std::string_view namePrefix) const;

  // Title and author, where the file names them.
  void addProperties(DocumentBuilder& document) const;

 private:
  struct Content;

  CompoundFile(std::shared_ptr<const Content> content, std::uint32_t folder);
  std::optional<std::uint32_t> entryOf(std::string_view streamName) const;

  std::shared_ptr<const Content> content_;
  std::vector<std::uint32_t> entries_;  // of this folder, by their places in the directory
};

}  // namespace norvast
