#include "json/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>

namespace norvast {
namespace {

constexpr std::size_t BLANKS_A_LEVEL = 2;

// The escape of a character that may not stand in a string, or an empty text.
std::string_view escapeOf(char character) {
  static constexpr std::array<std::string_view, 32> CONTROLS = {
      "\\u0000", "\\u0001", "\\u0002", "\\u0003", "\\u0004", "\\u0005", "\\u0006", "\\u0007",
      "\\b",     "\\t",     "\\n",     "\\u000b", "\\f",     "\\r",     "\\u000e", "\\u000f",
      "\\u0010", "\\u0011", "\\u0012", "\\u0013", "\\u0014", "\\u0015", "\\u0016", "\\u0017",
      "\\u0018", "\\u0019", "\\u001a", "\\u001b", "\\u001c", "\\u001d", "\\u001e", "\\u001f"};
  const auto byte = static_cast<unsigned char>(character);
  if (byte < CONTROLS.size()) return CONTROLS[byte];
  if (character == '"') return "\\\"";
  if (character == '\\') return "\\\\";
  if (character == '/') return "\\/";
  return {};
}

class Writer {
 public:
  explicit Writer(JsonStyle style)
      : pretty_(style != JsonStyle::compact),
        solidus_(style == JsonStyle::legible ? Solidus::plain : Solidus::escaped) {}

  // False when the value cannot be written; the text is then of no use.
  bool write(const Json& json) {
    return std::visit([this](const auto& value) { return this->put(value); }, json.value());
  }

  std::string take() { return std::move(text_); }

 private:
  bool put(std::nullptr_t) { return append("null"); }
  bool put(bool value) { return append(value ? "true" : "false"); }
  bool put(std::int64_t value) { return append(std::to_string(value)); }
  bool put(const Json::Text& value) { return append(value.text); }

  bool put(double value) {
    if (!std::isfinite(value)) return false;
    std::array<char, 32> digits{};  // the longest shortest form has 24 characters
    const auto* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return append({digits.data(), end});
  }

  bool put(const std::string& value) {
    appendJsonString(text_, value, solidus_);
    return true;
  }

  bool put(const Json::Array& array) {
    return putAll('[', array, ']', [this](const Json& element) { return write(element); });
  }

  bool put(const Json::Object& object) {
    return putAll('{', object, '}', [this](const auto& entry) {
      put(entry.first);
      append(pretty_ ? " : " : ":");
      return write(entry.second);
    });
  }

  bool putAll(char open, const auto& items, char close, auto putOne) {
    text_ += open;
    ++level_;
    bool first = true;
    for (const auto& item : items) {
      if (!first) text_ += ',';
      first = false;
      breakLine();
      if (!putOne(item)) return false;
    }
    --level_;
    if (!first) breakLine();
    text_ += close;
    return true;
  }

  void breakLine() {
    if (pretty_) text_.append(1, '\n').append(level_ * BLANKS_A_LEVEL, ' ');
  }

  bool append(std::string_view text) {
    text_ += text;
    return true;
  }

  std::string text_;
  std::size_t level_ = 0;
  bool pretty_;
  Solidus solidus_;
};

}  // namespace

void appendJsonString(std::string& text, std::string_view value, Solidus solidus) {
  text += '"';
  std::size_t written = 0;
  for (std::size_t at = 0; at < value.size(); ++at) {
    const std::string_view escape = escapeOf(value[at]);
    if (escape.empty() || (value[at] == '/' && solidus == Solidus::plain)) continue;
    text.append(value, written, at - written).append(escape);
    written = at + 1;
  }
  text.append(value, written).append("\"");
}

std::optional<std::string> writeJson(const Json& value, JsonStyle style) {
  Writer writer(style);
  if (!writer.write(value)) return std::nullopt;
  return writer.take();
}

}  // namespace norvast
