#include "json/json_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <map>
#include <utility>

#include "json/json_cursor.h"
#include "json/json_writer.h"
#include "json/whole_number.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr std::size_t UNICODE_ESCAPE_LENGTH = 6;  // \uXXXX
constexpr char32_t REPLACEMENT = 0xFFFD;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// The UTF-16 code unit of the \u escape that `text` begins with, or 0.
char32_t escapedUnit(std::string_view text) {
  if (!text.starts_with("\\u")) return 0;
  std::uint32_t unit = 0;
  (void)std::from_chars(text.data() + 2, text.data() + UNICODE_ESCAPE_LENGTH, unit, 16);
  return unit;
}

// Appends the character of the escape that `rest` begins with, and takes it, and with the first
// half of a pair the second.
void decodeEscape(std::string_view& rest, std::string& into) {
  const char kind = rest[1];
  if (kind != 'u') {
    constexpr std::string_view NAMES = "bfnrt";
    constexpr std::string_view CONTROLS = "\b\f\n\r\t";
    const std::size_t control = NAMES.find(kind);
    into += control == std::string_view::npos ? kind : CONTROLS[control];
    return rest.remove_prefix(2);
  }
  char32_t scalar = escapedUnit(rest);
  rest.remove_prefix(UNICODE_ESCAPE_LENGTH);
  const char32_t second = escapedUnit(rest);
  if (isHighSurrogate(scalar) && isLowSurrogate(second)) {
    scalar = 0x10000 + ((scalar - 0xD800) << 10) + (second - 0xDC00);
    rest.remove_prefix(UNICODE_ESCAPE_LENGTH);
  } else if (isHighSurrogate(scalar) || isLowSurrogate(scalar)) {
    scalar = REPLACEMENT;
  }
  appendUtf8(into, scalar);
}

// The characters of a string that stands between quotation marks.
std::string decode(std::string_view quoted) {
  std::string_view rest = quoted.substr(1, quoted.size() - 2);
  std::string text;
  while (!rest.empty()) {
    const std::size_t plain = std::min(rest.find('\\'), rest.size());
    text.append(rest.substr(0, plain));
    rest.remove_prefix(plain);
    if (!rest.empty()) decodeEscape(rest, text);
  }
  return text;
}

// Writes a checked text anew.
class CompactWriter {
 public:
  explicit CompactWriter(std::string_view text) : cursor_(text) {}

  std::string write() && {
    writeValue();
    return std::move(text_);
  }

 private:
  void writeValue() {
    if (cursor_.take('{')) return writeObject();
    if (cursor_.take('[')) return writeArray();
    const std::string_view scalar = cursor_.takeValue();
    if (!scalar.starts_with('"')) {
      text_ += scalar;
    } else {
      appendJsonString(text_, decode(scalar));
    }
  }

  void writeArray() {
    text_ += '[';
    while (!cursor_.take(']')) {
      writeValue();
      if (cursor_.take(',')) text_ += ',';
    }
    text_ += ']';
  }

  // The members as they come, and then, where that is not the order of their keys, once more.
  void writeObject() {
    std::map<std::string, std::pair<std::size_t, std::size_t>> members;  // where each one is
    bool inOrder = true;
    const std::size_t start = text_.size();
    while (!cursor_.take('}')) {
      std::string key = decode(cursor_.takeString());
      const std::size_t begin = text_.size() + 1;
      inOrder = inOrder && (members.empty() || members.rbegin()->first < key);
      text_ += members.empty() ? '{' : ',';
      appendJsonString(text_, key);
      text_ += ':';
      (void)cursor_.take(':');
      writeValue();
      (void)cursor_.take(',');
      members.insert_or_assign(std::move(key), std::pair(begin, text_.size()));
    }
    if (!inOrder) {
      const std::string asTheyCame = text_.substr(start);
      text_.resize(start);
      for (const auto& [key, place] : members) {
        text_ += text_.size() == start ? '{' : ',';
        text_.append(asTheyCame, place.first - start, place.second - place.first);
      }
    }
    text_ += members.empty() ? "{}" : "}";
  }

  JsonCursor cursor_;
  std::string text_;
};

}  // namespace

std::optional<JsonText> JsonText::parse(std::string_view text) {
  JsonCursor cursor(text);
  const std::string_view value = cursor.takeValue();
  if (value.empty() || !cursor.isAtEnd()) return std::nullopt;
  return JsonText(value);
}

std::optional<JsonText> JsonText::member(std::string_view key) const {
  std::optional<JsonText> found;
  JsonCursor cursor(text_);
  if (!cursor.take('{')) return found;
  while (!cursor.take('}')) {
    const std::string_view name = cursor.takeString();
    (void)cursor.take(':');
    const std::string_view value = cursor.takeValue();
    (void)cursor.take(',');
    if (decode(name) == key) found = JsonText(value);
  }
  return found;
}

void JsonText::forEachMember(const std::function<void(std::string, JsonText)>& visit) const {
  JsonCursor cursor(text_);
  if (!cursor.take('{')) return;
  while (!cursor.take('}')) {
    std::string key = decode(cursor.takeString());
    (void)cursor.take(':');
    visit(std::move(key), JsonText(cursor.takeValue()));
    (void)cursor.take(',');
  }
}

std::vector<JsonText> JsonText::elements() const {
  std::vector<JsonText> elements;
  JsonCursor cursor(text_);
  if (!cursor.take('[')) return elements;
  while (!cursor.take(']')) {
    elements.push_back(JsonText(cursor.takeValue()));
    (void)cursor.take(',');
  }
  return elements;
}

std::optional<std::string> JsonText::string() const {
  if (!text_.starts_with('"')) return std::nullopt;
  return decode(text_);
}

std::optional<bool> JsonText::boolean() const {
  if (text_ != "true" && text_ != "false") return std::nullopt;
  return text_ == "true";
}

std::optional<std::int64_t> JsonText::wholeNumber() const {
  constexpr std::string_view NUMBER_STARTS = "-0123456789";
  if (NUMBER_STARTS.find(text_.front()) == std::string_view::npos) return std::nullopt;
  return norvast::wholeNumber(text_);
}

std::string JsonText::compact() const { return CompactWriter(text_).write(); }

}  // namespace norvast
