#include "extractor/manual/roff_text.h"

#include <algorithm>

#include "extractor/manual/roff_characters.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

// A string may refer to others, to many of them, and to itself.
constexpr int MOST_STRINGS_WITHIN = 5;
constexpr std::size_t MOST_REFERENCES = 500'000;

// Of the values of all strings together, and of one line that refers to them.
constexpr std::size_t MOST_STRINGS = 1000;
constexpr std::size_t MOST_VALUE_BYTES = 1000;
constexpr std::size_t MOST_LINE_BYTES = 100'000;

// Strings of every system, and those of pages that were made from other formats: these change with
// the device that they are shown on.
const std::map<std::string_view, std::string_view>& known() {
  static const std::map<std::string_view, std::string_view> KNOWN = {
      {"lq", "“"},  {"rq", "”"},   {"R", "®"},   {"Tm", "™"},   {"--", "–"}, {"L\"", "“"},
      {"R\"", "”"}, {"C`", "\""},  {"C'", "\""}, {"C+", "C++"}, {"PI", "π"}, {"Aq", "'"},
      {"Lt", "<"},  {"Gt", ">"},   {"Le", "≤"},  {"Ge", "≥"},   {"Ne", "≠"}, {"Pm", "±"},
      {"If", "∞"},  {"Na", "NaN"}, {"Ba", "|"},  {"q", "\""},   {"Rq", "”"}, {"Lq", "“"},
      {"aa", "´"},  {"ga", "`"},   {"Am", "&"}};
  return KNOWN;
}

class Escapes {
 public:
  explicit Escapes(const RoffStrings& strings) : strings_(strings) {}

  void append(std::string_view line, int depth = 0) {
    for (rest_ = line; !rest_.empty() && text_.size() < MOST_LINE_BYTES;) {
      const std::size_t plain = std::min(rest_.find('\\'), rest_.size());
      text_ += take(plain);
      if (rest_.empty()) return;
      (void)take(1);
      escape(depth);
    }
  }

  std::string text() && { return std::move(text_); }

 private:
  std::string_view take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view takeCharacter() { return take(firstCharacter(rest_).size()); }

  // "x", "(xx" or "[any length]".
  std::string_view takeName() {
    if (rest_.starts_with('(')) {
      (void)take(1);
      const std::size_t first = firstCharacter(rest_).size();
      return take(first + firstCharacter(rest_.substr(first)).size());
    }
    if (!rest_.starts_with('[')) return takeCharacter();
    const std::string_view name = take(rest_.find(']')).substr(1);
    (void)take(1);
    return name;
  }

  // What stands between two equal characters: 'any length'.
  std::string_view takeQuoted() {
    const std::string_view mark = takeCharacter();
    if (mark.empty()) return {};
    const std::string_view quoted = take(std::min(rest_.find(mark), rest_.size()));
    (void)takeCharacter();
    return quoted;
  }

  // "\s-1", "\s(12", "\s[12]", "\s'+1'".
  void dropSize() {
    if (rest_.starts_with('(') || rest_.starts_with('[')) return (void)takeName();
    if (rest_.starts_with('\'')) return (void)takeQuoted();
    const bool isChange = rest_.starts_with('+') || rest_.starts_with('-');
    if (isChange) (void)take(1);
    if (rest_.starts_with('(') || rest_.starts_with('[')) return (void)takeName();
    const bool hasTwoDigits = !isChange && rest_.size() > 1 && rest_[0] >= '1' && rest_[0] <= '3' &&
                              rest_[1] >= '0' && rest_[1] <= '9';
    (void)take(hasTwoDigits ? 2 : 1);
  }

  void escape(int depth) {
    if (rest_.empty()) return;
    const char name = rest_.front();
    switch (name) {
      case '(':
      case '[':
        text_ += roffCharacter(takeName());
        return;
      case '*':
        (void)take(1);
        return string(depth);
      case 's':
        (void)take(1);
        return dropSize();
      case 'o':
      case 'C':
      case 'Z':
        (void)take(1);
        return quoted(name);
      default:
        (void)take(1);
        simple(name);
    }
  }

  void simple(char name) {
    if (std::string_view("fgkmnFMVYOR").find(name) != std::string_view::npos) {
      if (rest_.starts_with('+') || rest_.starts_with('-')) (void)take(1);
      (void)(name == 'R' ? takeQuoted() : takeName());
    } else if (std::string_view("bhlvwxABDHLNSX").find(name) != std::string_view::npos) {
      // A move to the right sets words apart.
      const std::string_view move = takeQuoted();
      if (name == 'h' && !move.starts_with('-') && !text_.empty()) text_ += ' ';
    } else if (std::string_view(" ~0t").find(name) != std::string_view::npos) {
      text_ += ' ';
    } else if (name == 'e' || name == '\\' || name == 'E') {
      text_ += '\\';
    } else if (name == 'c') {
      text_ += ROFF_JOIN;
    } else if (std::string_view("&)|^/,%:!?{}adrupz\n").find(name) == std::string_view::npos) {
      text_ += name;  // itself, as the hyphen, and whatever has no other meaning
    }
  }

  void string(int depth) {
    const std::string_view name = takeName();
    if (depth == MOST_STRINGS_WITHIN) return;
    const std::string_view rest = rest_;
    append(strings_.value(name.substr(0, name.find(' '))), depth + 1);
    rest_ = rest;
  }

  void quoted(char name) {
    const std::string_view inner = takeQuoted();
    const std::string_view rest = rest_;
    if (name == 'C') {
      text_ += roffCharacter(inner);
    } else {
      append(inner, MOST_STRINGS_WITHIN);
    }
    rest_ = rest;
  }

  const RoffStrings& strings_;
  std::string_view rest_;
  std::string text_;
};

}  // namespace

bool RoffStrings::isDefined(std::string_view name) const {
  return known().contains(name) || values_.contains(name);
}

void RoffStrings::define(std::string_view name, std::string_view value) {
  if (value.size() > MOST_VALUE_BYTES || values_.size() > MOST_STRINGS) return;
  values_.insert_or_assign(std::string(name), std::string(value));
}

std::string_view RoffStrings::value(std::string_view name) const {
  if (++references_ > MOST_REFERENCES) return {};
  if (const auto found = known().find(name); found != known().end()) return found->second;
  const auto found = values_.find(name);
  return found == values_.end() ? std::string_view() : found->second;
}

std::string shownText(std::string_view line, const RoffStrings& strings) {
  if (line.find('\\') == std::string_view::npos) return std::string(line);
  Escapes escapes(strings);
  escapes.append(line);
  return std::move(escapes).text();
}

}  // namespace norvast::extractor
