#include "extractor/workbook_file.h"

#include <dlfcn.h>
#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <set>
#include <utility>

#include "extractor/compound_writing.h"
#include "extractor/workbook_records.h"
#include "text/encoding.h"

namespace norvast {
namespace {

std::string* currentBytes = nullptr;

// The size from which on a stream has sectors of its own, and one more: no stream is too small.
constexpr std::size_t PADDING_BYTES = 4096;

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

std::string repackedWorkbook(std::string stream) {
  return compoundFileOf("Workbook",
                        readableRecords(std::move(stream)) + std::string(PADDING_BYTES, '\0'));
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
