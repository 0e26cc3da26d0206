#include "extractor/workbook_file.h"

#include <dlfcn.h>
#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <set>
#include <utility>

#include "extractor/compound_writing.h"
#include "platform/byte_order.h"
#include "text/encoding.h"

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

// Of a code page "CP949", Windows' own encoding, where it differs from IBM's of that number.
std::string nameOfEncoding(const std::string& name) {
  if (!name.starts_with("CP")) return name;
  const std::string windows = "windows-" + name.substr(2);
  return decodedFrom("", windows) ? windows : name;
}

// The C library's own function of that name.
template <typename Function>
Function* systems(Function& /*ours*/, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
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
  return compoundFileOf("Workbook",
                        withoutObstacles(std::move(stream)) + std::string(PADDING_BYTES, '\0'));
}

}  // namespace norvast

// These stand before the C library's. FreeXL knows files by their names alone, and a process that
// is locked in can open none; nor can it load converters then, which are many to load ahead. The C
// library's own parameter names are reserved ones.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" FILE* fopen(const char* path, const char* /*mode*/) {
  const bool isWorkbook =
      norvast::currentBytes != nullptr && std::string_view(path) == norvast::WORKBOOK_NAME;
  if (isWorkbook) {
    return fmemopen(norvast::currentBytes->data(), norvast::currentBytes->size(), "r");
  }
  errno = EACCES;
  return nullptr;
}

extern "C" iconv_t iconv_open(const char* to, const char* from) {
  static std::set<std::string> names;  // which stand for their converters
  if (norvast::currentBytes == nullptr) return norvast::systems(iconv_open, "iconv_open")(to, from);
  const std::string name = norvast::nameOfEncoding(from);
  const bool isKnown = std::string_view(to) == "UTF-8" && norvast::decodedFrom("", name);
  if (isKnown) return const_cast<char*>(names.insert(name).first->c_str());
  errno = EINVAL;
  return reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): as iconv_open(3) says
}

// FreeXL gives a whole text at a time.
extern "C" std::size_t iconv(iconv_t converter, char** in, std::size_t* inLeft, char** out,
                             std::size_t* outLeft) {
  if (norvast::currentBytes == nullptr) {
    return norvast::systems(iconv, "iconv")(converter, in, inLeft, out, outLeft);
  }
  if (in == nullptr || *in == nullptr) return 0;  // there is no state to go back to
  const auto text = norvast::decodedFrom({*in, *inLeft}, static_cast<const char*>(converter));
  if (!text || text->size() > *outLeft) {
    errno = E2BIG;
    return static_cast<std::size_t>(-1);
  }
  *out = std::copy(text->begin(), text->end(), *out);
  *outLeft -= text->size();
  *in += *inLeft;
  *inLeft = 0;
  return 0;
}

extern "C" int iconv_close(iconv_t converter) {
  if (norvast::currentBytes != nullptr) return 0;
  return norvast::systems(iconv_close, "iconv_close")(converter);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
