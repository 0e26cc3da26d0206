#include "extractor/old_office/workbook_file.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/workbook_records.h"

namespace norvast::extractor {
namespace {

std::string* currentBytes = nullptr;

// The size from which on a stream has sectors of its own, and one more: no stream is too small.
constexpr std::size_t PADDING_BYTES = 4096;

void writeStream(GsfOutfile* file, const char* name, std::string_view bytes) {
  const OwnedGObject<GsfOutput> output(gsf_outfile_new_child(file, name, FALSE));
  (void)gsf_output_write(output.get(), bytes.size(), reinterpret_cast<const guint8*>(bytes.data()));
  (void)gsf_output_close(output.get());
}

}  // namespace

WorkbookBytes::WorkbookBytes(std::string bytes) : bytes_(std::move(bytes)) {
  currentBytes = &bytes_;
}

WorkbookBytes::~WorkbookBytes() { currentBytes = nullptr; }

std::string repackedWorkbook(std::string stream) {
  const OwnedGObject<GsfOutput> memory(gsf_output_memory_new());
  const OwnedGObject<GsfOutfile> file(gsf_outfile_msole_new(memory.get()));
  writeStream(file.get(), "Workbook",
              readableRecords(std::move(stream)) + std::string(PADDING_BYTES, '\0'));
  (void)gsf_output_close(GSF_OUTPUT(file.get()));
  const guint8* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory.get()));
  if (bytes == nullptr) return {};
  return {reinterpret_cast<const char*>(bytes),
          static_cast<std::size_t>(gsf_output_size(memory.get()))};
}

}  // namespace norvast::extractor

// Stands before the C library's: FreeXL knows files by their names alone, and a process that is
// locked in can open none. The C library's own parameter names are reserved ones.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" FILE* fopen(const char* path, const char* /*mode*/) {
  const bool isWorkbook = norvast::extractor::currentBytes != nullptr &&
                          std::string_view(path) == norvast::extractor::WORKBOOK_NAME;
  if (isWorkbook) {
    return fmemopen(norvast::extractor::currentBytes->data(),
                    norvast::extractor::currentBytes->size(), "r");
  }
  errno = EACCES;
  return nullptr;
}
