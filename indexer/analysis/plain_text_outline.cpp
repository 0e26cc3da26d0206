#include "indexer/analysis/plain_text_outline.h"

#include <algorithm>
#include <optional>

#include "document/type_group.h"
#include "indexer/analysis/lines.h"
#include "text/ascii.h"
#include "text/file_name.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

using Kind = Stretch::Kind;

constexpr std::size_t LONGEST_HEADING_BYTES = 120;

// A line of the text, without the blanks around it.
struct Line {
  std::size_t start = 0;  // in the text
  std::string_view text;
  std::size_t indent = 0;  // blanks before it

  bool isEmpty() const { return text.empty(); }
};

std::vector<Line> linesWithPlaces(std::string_view text) {
  std::vector<Line> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    const std::string_view line = trimmed(text.substr(start, end - start));
    const std::size_t indent =
        line.empty() ? 0 : static_cast<std::size_t>(line.data() - text.data()) - start;
    lines.push_back({start + indent, line, indent});
    start = end + 1;
  }
  return lines;
}

bool isUnderline(std::string_view line) {
  return line.size() >= 3 &&
         std::string_view("=-~^*\"+#").find(line[0]) != std::string_view::npos &&
         line.find_first_not_of(line[0]) == std::string_view::npos;
}

bool isRule(std::string_view line) { return markLength(line) == line.size(); }

bool isFence(std::string_view line) { return line.starts_with("```") || line.starts_with("~~~"); }

// Where the words of "## Words" begin; 0 when the line does not begin so.
std::size_t numberSignLength(std::string_view line) {
  const std::size_t signs = std::min(line.find_first_not_of('#'), line.size());
  if (signs == 0 || signs > 6 || signs + 1 >= line.size() || line[signs] != ' ') return 0;
  return signs + 1;
}

bool endsOpen(std::string_view line) {
  return std::string_view(".,;:!?)").find(line.back()) == std::string_view::npos;
}

// "2.1 Pumps", "3. Pumps".
bool isNumbered(std::string_view line) {
  if (!isAsciiDigit(line.front())) return false;
  const std::size_t end = line.find_first_not_of("0123456789.");
  if (end == std::string_view::npos || line[end] != ' ' || line.find('.') >= end) return false;
  const std::size_t word = line.find_first_not_of(' ', end);
  return letterCaseOf(line.substr(word)) == LetterCase::capital;
}

bool isAllCapitals(std::string_view line) {
  const auto isSmall = [](char character) { return character >= 'a' && character <= 'z'; };
  return std::count_if(line.begin(), line.end(), isAsciiCapital) >= 3 &&
         std::none_of(line.begin(), line.end(), isSmall) &&
         line.find_first_of("=<>{}|_$/\\") == std::string_view::npos;
}

bool isComment(std::string_view line) {
  for (const std::string_view mark : {"//", "#", "*", "/*", "--", ";", "%", "\"\"\"", "<!--"}) {
    if (line.starts_with(mark)) return true;
  }
  return false;
}

class PlainText {
 public:
  PlainText(std::string_view text, PlainTextKind kind)
      : kind_(kind), lines_(linesWithPlaces(text)) {}

  std::vector<Stretch> stretches() {
    for (std::size_t at = linesOfFrontMatter(); at < lines_.size();) at = take(at);
    return std::move(stretches_);
  }

 private:
  // Fields of a Markdown file between two lines of dashes, before its text.
  std::size_t linesOfFrontMatter() const {
    if (kind_ != PlainTextKind::markdown || lines_.empty() || lines_[0].text != "---") return 0;
    for (std::size_t at = 1; at < lines_.size(); ++at) {
      if (lines_[at].text == "---") return at + 1;
    }
    return 0;
  }

  // Takes the line, and says which one comes next.
  std::size_t take(std::size_t at) {
    const Line& line = lines_[at];
    if (kind_ == PlainTextKind::program) return takeOfProgram(at);
    if (isFence(line.text)) return takeFenced(at);
    if (isEmptyAt(at) || isRule(line.text)) {
      isOpen_ = false;
      return at + 1;
    }
    if (isUnderlined(at)) {
      add(Kind::heading, line, 0);
      isOpen_ = false;
      return at + 2;
    }
    if (const auto words = headingAt(at)) {
      add(Kind::heading, line, *words);
      isOpen_ = false;
      return at + 1;
    }
    const bool isRow = line.text.starts_with('|');
    const std::size_t mark = markLength(line.text);
    if (isOpen_ && mark == 0) {
      extendTo(line);
    } else {
      add(isRow ? Kind::tableRow : Kind::prose, line, mark);
    }
    isOpen_ = true;
    return at + 1;
  }

  std::size_t takeOfProgram(std::size_t at) {
    const Line& line = lines_[at];
    if (line.isEmpty()) {
      isOpen_ = false;
      return at + 1;
    }
    const Kind kind =
        isComment(line.text) && !line.text.starts_with("#!") ? Kind::prose : Kind::code;
    if (isOpen_ && stretches_.back().kind == kind) {
      extendTo(line);
    } else {
      add(kind, line, 0);
    }
    isOpen_ = true;
    return at + 1;
  }

  std::size_t takeFenced(std::size_t at) {
    std::size_t end = at + 1;
    while (end < lines_.size() && !isFence(lines_[end].text)) ++end;
    for (std::size_t inner = at + 1; inner < end; ++inner) {
      if (inner == at + 1) {
        add(Kind::code, lines_[inner], 0);
      } else {
        extendTo(lines_[inner]);
      }
    }
    isOpen_ = false;
    return end + 1;
  }

  bool isEmptyAt(std::size_t at) const { return at >= lines_.size() || lines_[at].isEmpty(); }

  bool standsAlone(std::size_t at) const { return isAtStart(at) && isEmptyAt(at + 1); }

  bool isAtStart(std::size_t at) const { return at == 0 || lines_[at - 1].isEmpty(); }

  bool isUnderlined(std::size_t at) const {
    if (isOpen_ || at + 1 >= lines_.size()) return false;
    const std::string_view line = lines_[at].text;
    const std::string_view below = lines_[at + 1].text;
    return line.size() <= LONGEST_HEADING_BYTES && isUnderline(below) &&
           below.size() + 2 >= countClusters(line);
  }

  // Where the words of a heading begin in its line; nothing for any other line.
  std::optional<std::size_t> headingAt(std::size_t at) const {
    const std::string_view line = lines_[at].text;
    if (line.size() > LONGEST_HEADING_BYTES) return std::nullopt;
    if (const std::size_t words = numberSignLength(line); words > 0) {
      const bool isHeading = kind_ == PlainTextKind::markdown || standsAlone(at);
      return isHeading ? std::optional(words) : std::nullopt;
    }
    if (kind_ == PlainTextKind::markdown || !isAtStart(at) || !endsOpen(line)) return std::nullopt;
    const bool isAlone = standsAlone(at);
    const bool isHeading = (isAlone && (isNumbered(line) || isAllCapitals(line))) ||
                           standsOut(at) || (isAlone && isTitle(at));
    return isHeading ? std::optional<std::size_t>(0) : std::nullopt;
  }

  // The only unindented line above text that is indented.
  bool standsOut(std::size_t at) const {
    if (lines_[at].indent > 0 || markLength(lines_[at].text) > 0) return false;
    std::size_t next = at + 1;
    while (next < lines_.size() && lines_[next].isEmpty()) ++next;
    return next < lines_.size() && next <= at + 2 && lines_[next].indent >= 3 &&
           countClusters(lines_[at].text) <= 60;
  }

  // The first line of all.
  bool isTitle(std::size_t at) const {
    return stretches_.empty() && markLength(lines_[at].text) == 0 &&
           letterCaseOf(lines_[at].text) == LetterCase::capital;
  }

  void add(Kind kind, const Line& line, std::size_t mark) {
    stretches_.push_back({kind, line.start + mark, line.text.size() - mark});
  }

  void extendTo(const Line& line) {
    Stretch& last = stretches_.back();
    last.size = line.start + line.text.size() - last.start;
  }

  PlainTextKind kind_;
  std::vector<Line> lines_;
  std::vector<Stretch> stretches_;
  bool isOpen_ = false;  // the last stretch may go on
};

}  // namespace

PlainTextKind plainTextKindOf(std::string_view text, std::string_view name) {
  const std::string extension = fileExtension(name);
  for (const std::string_view markdown : {"md", "markdown", "mdown", "mkd", "rmd", "qmd"}) {
    if (extension == markdown) return PlainTextKind::markdown;
  }
  const std::string_view group = typeGroup(extension);
  const bool isProgram =
      group == "Code" || group == "Data" || (extension.empty() && text.starts_with("#!"));
  return isProgram ? PlainTextKind::program : PlainTextKind::prose;
}

std::vector<Stretch> stretchesOfPlainText(std::string_view text, PlainTextKind kind) {
  return PlainText(text, kind).stretches();
}

}  // namespace norvast::indexer
