#include "extractor/old_office/shared_texts.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/byte_order.h"

namespace norvast::extractor {
namespace {

// Of the length and the flags before each text.
constexpr std::size_t TEXT_HEADER_BYTES = 3;

// Of a text in UTF-16: those fit in two records, over which FreeXL can put it together.
constexpr std::size_t MOST_UNITS = 8000;

// The contents of records as one row of bytes.
class Contents {
 public:
  explicit Contents(std::span<const std::string_view> contents) : rest_(contents) { next(); }

  std::optional<std::uint32_t> number(std::size_t bytes) {
    std::string read;
    while (read.size() < bytes && !isAtEnd()) read += take(bytes - read.size());
    if (read.size() < bytes) return std::nullopt;
    return littleEndianAt(read, 0, bytes);
  }

  void skip(std::size_t bytes) {
    while (bytes > 0 && !isAtEnd()) bytes -= take(bytes).size();
  }

  // As many units of UTF-16, each in one or two bytes; a record within them begins with flags that
  // say which.
  std::optional<std::u16string> units(std::size_t count, bool isWide) {
    std::u16string text;
    while (text.size() < count) {
      if (current_.empty()) {
        if (isAtEnd()) return std::nullopt;
        isWide = (number(1).value_or(0) & 1) != 0;
      }
      const std::size_t width = isWide ? 2 : 1;
      const std::size_t here = std::min(count - text.size(), current_.size() / width);
      if (here == 0 && !current_.empty()) return std::nullopt;
      for (std::size_t unit = 0; unit < here; ++unit) {
        text += static_cast<char16_t>(littleEndianAt(current_, unit * width, width));
      }
      current_.remove_prefix(here * width);
    }
    return text;
  }

 private:
  void next() {
    while (current_.empty() && !rest_.empty()) {
      current_ = rest_.front();
      rest_ = rest_.subspan(1);
    }
  }

  bool isAtEnd() {
    next();
    return current_.empty();
  }

  std::string_view take(std::size_t bytes) {
    const std::string_view taken = current_.substr(0, bytes);
    current_.remove_prefix(taken.size());
    return taken;
  }

  std::span<const std::string_view> rest_;
  std::string_view current_;
};

// [MS-XLS] 2.5.293.
std::optional<std::u16string> readText(Contents& contents) {
  constexpr std::uint32_t WIDE = 1;
  constexpr std::uint32_t PRONOUNCED = 4;
  constexpr std::uint32_t FORMATTED = 8;
  constexpr std::size_t FORMAT_BYTES = 4;
  const auto count = contents.number(2);
  const auto flags = contents.number(1);
  if (!count || !flags) return std::nullopt;
  const auto formats = (*flags & FORMATTED) != 0 ? contents.number(2) : 0;
  const auto pronunciation = (*flags & PRONOUNCED) != 0 ? contents.number(4) : 0;
  auto text = contents.units(*count, (*flags & WIDE) != 0);
  contents.skip(formats.value_or(0) * FORMAT_BYTES + pronunciation.value_or(0));
  return text;
}

bool isHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// Not too long, not empty, and without half characters.
std::u16string readable(std::u16string text) {
  text.resize(std::min(text.size(), MOST_UNITS));
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (isHigh(text[at]) && at + 1 < text.size() && isLow(text[at + 1])) {
      ++at;
    } else if (isHigh(text[at]) || isLow(text[at])) {
      text[at] = u'\uFFFD';
    }
  }
  return text.empty() ? u" " : text;
}

class Records {
 public:
  void add(std::u16string_view text) {
    const bool isWide =
        std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0xFF; });
    const std::size_t width = isWide ? 2 : 1;
    if (record_.size() + TEXT_HEADER_BYTES + text.size() * width > MOST_RECORD_BYTES)
      finishRecord();
    append(record_, text.size(), 2);
    record_ += isWide ? '\1' : '\0';
    for (const char16_t unit : text) {
      if (record_.size() + width > MOST_RECORD_BYTES) {
        finishRecord();
        record_ += isWide ? '\1' : '\0';
      }
      append(record_, unit, width);
    }
    ++count_;
  }

  // All of it, with the number of texts in its place.
  std::string take() {
    if (count_ == 0) return {};
    finishRecord();
    std::string counts;
    append(counts, count_, 4);
    append(counts, count_, 4);
    return bytes_.replace(HEADER_BYTES, counts.size(), counts);
  }

 private:
  static constexpr std::size_t HEADER_BYTES = 4;

  static void append(std::string& into, std::size_t number, std::size_t bytes) {
    for (; bytes > 0; --bytes, number >>= 8) into += static_cast<char>(number & 0xFF);
  }

  void finishRecord() {
    append(bytes_, bytes_.empty() ? SHARED_TEXTS_RECORD : CONTINUE_RECORD, 2);
    append(bytes_, record_.size(), 2);
    bytes_ += record_;
    record_.clear();
  }

  std::string bytes_;
  std::string record_ = std::string(8, '\0');  // the table begins with two counts
  std::size_t count_ = 0;
};

}  // namespace

std::string rewrittenSharedTexts(std::span<const std::string_view> contents) {
  Contents from(contents);
  from.skip(4);  // how often they are referred to
  const std::uint32_t count = from.number(4).value_or(0);
  Records records;
  for (std::uint32_t index = 0; index < count; ++index) {
    auto text = readText(from);
    if (!text) break;
    records.add(readable(*std::move(text)));
  }
  return records.take();
}

}  // namespace norvast::extractor
