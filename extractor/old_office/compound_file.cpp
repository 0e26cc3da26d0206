#include "extractor/old_office/compound_file.h"

#include <gsf/gsf-doc-meta-data.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-meta-names.h>
#include <gsf/gsf-msole-utils.h>
#include <gsf/gsf-utils.h>

#include <algorithm>

#include "document/reading_bounds.h"
#include "text/ascii.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

OwnedGObject<GsfInput> inputOf(std::string_view bytes) {
  const auto* data = reinterpret_cast<const guint8*>(bytes.data());
  return OwnedGObject<GsfInput>(
      gsf_input_memory_new(data, static_cast<gsf_off_t>(bytes.size()), FALSE));
}

std::string propertyText(GsfDocMetaData* properties, const char* name) {
  const GsfDocProp* property = gsf_doc_meta_data_lookup(properties, name);
  const GValue* value = property == nullptr ? nullptr : gsf_doc_prop_get_val(property);
  const char* text =
      value != nullptr && G_VALUE_HOLDS_STRING(value) ? g_value_get_string(value) : nullptr;
  return text == nullptr ? std::string() : repairUtf8(text);
}

}  // namespace

void CompoundFile::prepare() { gsf_init(); }

std::optional<CompoundFile> CompoundFile::open(std::string_view bytes) {
  const auto input = inputOf(bytes);
  GsfInfile* file = gsf_infile_msole_new(input.get(), nullptr);
  if (file == nullptr) return std::nullopt;
  return CompoundFile(file);
}

// Names are compared without regard to case ([MS-CFB] 2.6.4); the library compares them as they
// are.
GsfInput* CompoundFile::child(std::string_view name) const {
  for (int index = 0; index < entryCount(); ++index) {
    const char* own = gsf_infile_name_by_index(file_.get(), index);
    if (own != nullptr && asciiLowerCase(std::string_view(own)) == asciiLowerCase(name)) {
      return gsf_infile_child_by_index(file_.get(), index);
    }
  }
  return nullptr;
}

bool CompoundFile::hasStream(const char* name) const {
  return OwnedGObject<GsfInput>(child(name)) != nullptr;
}

std::optional<std::string> CompoundFile::stream(const char* name) const {
  const OwnedGObject<GsfInput> input(child(name));
  if (!input || gsf_input_size(input.get()) < 0) return std::nullopt;
  std::string bytes(
      std::min(static_cast<std::size_t>(gsf_input_size(input.get())), MOST_STREAM_BYTES), '\0');
  if (bytes.empty()) return bytes;
  auto* into = reinterpret_cast<guint8*>(bytes.data());
  if (gsf_input_read(input.get(), bytes.size(), into) == nullptr) return std::nullopt;
  return bytes;
}

std::optional<CompoundFile> CompoundFile::folder(int index) const {
  GsfInput* entry = gsf_infile_child_by_index(file_.get(), index);
  if (entry == nullptr) return std::nullopt;
  OwnedGObject<GsfInput> owned(entry);
  if (!GSF_IS_INFILE(entry) || gsf_infile_num_children(GSF_INFILE(entry)) < 0) return std::nullopt;
  (void)owned.release();  // to the file
  return CompoundFile(GSF_INFILE(entry));
}

std::string CompoundFile::entryName(int index) const {
  const char* name = gsf_infile_name_by_index(file_.get(), index);
  return name == nullptr ? std::string() : std::string(name);
}

// [MS-OLEPS] and [MS-OSHARED] 2.3.3.2: a stream whose name begins with the byte 5 holds the title,
// the author and the like, each by a number.
void CompoundFile::addProperties(DocumentBuilder& document) const {
  const OwnedGObject<GsfInput> input(
      gsf_infile_child_by_name(file_.get(), "\005SummaryInformation"));
  if (!input) return;
  const OwnedGObject<GsfDocMetaData> properties(gsf_doc_meta_data_new());
  GError* error = gsf_doc_meta_data_read_from_msole(properties.get(), input.get());
  if (error != nullptr) g_error_free(error);  // what was read before it counts
  document.setTitle(propertyText(properties.get(), GSF_META_NAME_TITLE));
  document.setAuthor(propertyText(properties.get(), GSF_META_NAME_CREATOR));
}

}  // namespace norvast::extractor
