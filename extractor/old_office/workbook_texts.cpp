#include "extractor/old_office/workbook_texts.h"

#include <algorithm>
#include <cstdint>

#include "document/reading_bounds.h"
#include "platform/byte_order.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

// The pieces as one row of bytes.
class Contents {
 public:
  explicit Contents(std::span<const std::string_view> pieces) : rest_(pieces) {}

  bool isAtEnd() {
    while (current_.empty() && !rest_.empty()) {
      current_ = rest_.front();
      rest_ = rest_.subspan(1);
    }
    return current_.empty();
  }

  // Fewer bytes where the pieces end.
  std::string bytes(std::size_t count) {
    std::string read;
    while (read.size() < count && !isAtEnd()) read += take(count - read.size());
    return read;
  }

  std::uint32_t number(std::size_t byteCount) {
    return littleEndianAt(bytes(byteCount), 0, byteCount);
  }

  void skip(std::size_t count) {
    while (count > 0 && !isAtEnd()) count -= take(count).size();
  }

  // As many units of UTF-16, with two bytes each, the lower one first. They are stored so when
  // `isWide`, else without the higher byte, which is 0. A piece that begins within them begins with
  // flags that say which ([MS-XLS] 2.5.293).
  std::string units(std::size_t count, bool isWide) {
    std::string text;
    while (text.size() < 2 * count) {
      if (current_.empty()) {
        if (isAtEnd()) break;
        isWide = (number(1) & 1) != 0;
      }
      const std::size_t width = isWide ? 2 : 1;
      const std::size_t here = std::min(count - text.size() / 2, current_.size() / width);
      if (here == 0 && !current_.empty()) break;  // half a unit at the end of a piece
      const std::string_view stored = take(here * width);
      if (isWide) text += stored;
      for (std::size_t at = 0; !isWide && at < here; ++at) (text += stored[at]) += '\0';
    }
    return text;
  }

 private:
  std::string_view take(std::size_t count) {
    const std::string_view taken = current_.substr(0, count);
    current_.remove_prefix(taken.size());
    return taken;
  }

  std::span<const std::string_view> rest_;
  std::string_view current_;
};

// [MS-XLS] 2.5.293, XLUnicodeRichExtendedString; without the two parts that the flags announce it
// is an XLUnicodeString or, with a length of one byte, a ShortXLUnicodeString:
//   1 or 2 bytes  length in units of UTF-16
//   1             flags: 1 units have two bytes, 4 pronunciation, 8 formats
//   2             number of formats, if there are any
//   4             length of the pronunciation in bytes, if there is any
//   then the units, the formats with 4 bytes each, and the pronunciation.
std::string utf16Text(Contents& contents, std::size_t lengthBytes) {
  constexpr std::uint32_t WIDE = 1;
  constexpr std::uint32_t PRONOUNCED = 4;
  constexpr std::uint32_t FORMATTED = 8;
  constexpr std::size_t FORMAT_BYTES = 4;
  const std::size_t count = contents.number(lengthBytes);
  const std::uint32_t flags = contents.number(1);
  const std::size_t formats = (flags & FORMATTED) != 0 ? contents.number(2) : 0;
  const std::size_t pronunciation = (flags & PRONOUNCED) != 0 ? contents.number(4) : 0;
  const std::string units = contents.units(count, (flags & WIDE) != 0);
  contents.skip(formats * FORMAT_BYTES + pronunciation);
  return decodedFrom(units, "UTF-16LE").value_or("");
}

}  // namespace

std::string workbookText(std::span<const std::string_view> pieces, std::size_t at,
                         std::size_t lengthBytes, const TextForm& form) {
  Contents contents(pieces);
  contents.skip(at);
  if (form.isUtf16) return utf16Text(contents, lengthBytes);
  const std::size_t count = contents.number(lengthBytes);
  return decodedFrom(contents.bytes(count), form.encoding).value_or("");
}

std::vector<std::string> sharedTexts(std::span<const std::string_view> pieces) {
  Contents contents(pieces);
  contents.skip(4);  // how often cells refer to a text
  const std::size_t count = std::min<std::size_t>(contents.number(4), MOST_TABLE_ENTRIES);
  std::vector<std::string> texts;
  while (texts.size() < count && !contents.isAtEnd()) texts.push_back(utf16Text(contents, 2));
  return texts;
}

}  // namespace norvast::extractor
