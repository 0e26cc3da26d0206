#include "extractor/workbook_file.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "extractor/compound_file.h"
#include "platform/byte_order.h"

namespace norvast {
namespace {

std::string* currentBytes = nullptr;

// [MS-XLS] 2.1.4: each record is its type and its length, two bytes each, and that many bytes.
constexpr std::size_t HEADER_BYTES = 4;
constexpr std::uint32_t SHARED_TEXTS = 0x00FC;
constexpr std::uint32_t PASSWORD = 0x002F;
constexpr std::uint32_t SHEET_START = 0x0809;
constexpr std::uint32_t SHEET_END = 0x000A;
constexpr std::string_view UNREAD_TYPE("\xFF\0", 2);  // 0x00FF, of a record that speeds others up

// The size from which on a stream has sectors of its own, and one more: no stream is too small.
constexpr std::size_t PADDING_BYTES = 4096;

bool isEmptyTable(std::string_view record) {
  return littleEndianAt(record, 0, 2) == SHARED_TEXTS && record.size() == HEADER_BYTES + 8 &&
         littleEndianAt(record, HEADER_BYTES + 4, 4) == 0;
}

// Sheets are known by their places in the stream: what is not to be seen keeps its size, as a
// record of another type.
std::string withoutObstacles(std::string stream) {
  std::size_t at = 0;
  std::size_t depth = 0;
  while (stream.size() - at >= HEADER_BYTES) {
    const std::size_t size = HEADER_BYTES + littleEndianAt(stream, at + 2, 2);
    const std::string_view record = std::string_view(stream).substr(at, size);
    const std::uint32_t type = littleEndianAt(record, 0, 2);
    if (type == SHEET_START) ++depth;
    const bool isChart = depth > 1;
    if (type == SHEET_END && depth > 0) --depth;
    if (isChart || isEmptyTable(record)) stream.replace(at, 2, UNREAD_TYPE);
    at += std::min(size, stream.size() - at);
  }
  return stream;
}

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

bool isEncryptedWorkbook(std::string_view stream) {
  while (stream.size() >= HEADER_BYTES) {
    const std::uint32_t type = littleEndianAt(stream, 0, 2);
    if (type == PASSWORD || type == SHEET_END) return type == PASSWORD;
    stream.remove_prefix(
        std::min(HEADER_BYTES + std::size_t{littleEndianAt(stream, 2, 2)}, stream.size()));
  }
  return false;
}

std::string repackedWorkbook(std::string stream) {
  const OwnedGObject<GsfOutput> memory(gsf_output_memory_new());
  const OwnedGObject<GsfOutfile> file(gsf_outfile_msole_new(memory.get()));
  writeStream(file.get(), "Workbook",
              withoutObstacles(std::move(stream)) + std::string(PADDING_BYTES, '\0'));
  (void)gsf_output_close(GSF_OUTPUT(file.get()));
  const guint8* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory.get()));
  if (bytes == nullptr) return {};
  return {reinterpret_cast<const char*>(bytes),
          static_cast<std::size_t>(gsf_output_size(memory.get()))};
}

}  // namespace norvast

// Stands before the C library's: FreeXL knows files by their names alone, and a process that is
// locked in can open none. The C library's own parameter names are reserved ones.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" FILE* fopen(const char* path, const char* /*mode*/) {
  const bool isWorkbook =
      norvast::currentBytes != nullptr && std::string_view(path) == norvast::WORKBOOK_NAME;
  if (isWorkbook) {
    return fmemopen(norvast::currentBytes->data(), norvast::currentBytes->size(), "r");
  }
  errno = EACCES;
  return nullptr;
}
