// Compound file: the streams in a file of the format in which older office programs keep theirs
// ([MS-CFB]).
#pragma once

#include <gsf/gsf-infile.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

struct UnrefGObject {
  void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using OwnedGObject = std::unique_ptr<Object, UnrefGObject>;

class CompoundFile {
 public:
  // To be called once, before the process gives up opening files.
  static void prepare();

  // The bytes outlive the file. Nothing when they are no compound file.
  static std::optional<CompoundFile> open(std::string_view bytes);

  // Names are ASCII, and the same in capitals and small letters.
  bool hasStream(const char* name) const;

  // The stream of that name, its first MOST_STREAM_BYTES; nothing when there is none.
  std::optional<std::string> stream(const char* name) const;

  // The folder with that index among the entries, as a file of its own; nothing when the entry is a
  // stream or there is none. Its name stands in `entryName`.
  std::optional<CompoundFile> folder(int index) const;
  std::string entryName(int index) const;  // empty behind the last one
  int entryCount() const { return gsf_infile_num_children(file_.get()); }

  // Title and author, where the file names them.
  void addProperties(DocumentBuilder& document) const;

 private:
  explicit CompoundFile(GsfInfile* file) : file_(file) {}

  // The entry of that name, for the caller to own; null when there is none.
  GsfInput* child(std::string_view name) const;

  OwnedGObject<GsfInfile> file_;
};

}  // namespace norvast::extractor
