#include "extractor/manual/roff_lines.h"

#include <algorithm>
#include <utility>

#include "text/ascii.h"

namespace norvast::extractor {
namespace {

// Each is taken from the rest of its line.
constexpr int MOST_CONDITIONS_A_LINE = 100;

// Where a comment begins, or the line ends: \" or \#, but not behind a backslash of its own.
std::size_t commentAt(std::string_view line) {
  for (std::size_t at = line.find('\\'); at != std::string_view::npos; at = line.find('\\', at)) {
    if (at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '#')) return at;
    at += 2;
  }
  return line.size();
}

bool endsWithEscape(std::string_view line) {
  const std::size_t last = line.find_last_not_of('\\');
  return (line.size() - (last + 1)) % 2 == 1;  // npos + 1 is 0: nothing but backslashes
}

std::size_t count(std::string_view line, std::string_view mark) {
  std::size_t found = 0;
  for (std::size_t at = line.find(mark); at != std::string_view::npos; at = line.find(mark, at)) {
    ++found;
    at += mark.size();
  }
  return found;
}

std::string_view withoutBlanksBefore(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

bool isBlank(char character) { return character == ' ' || character == '\t'; }

std::string_view firstWord(std::string_view text) {
  return text.substr(0, text.find_first_of(" \t"));
}

RoffLine lineOf(std::string line) {
  if (!line.starts_with('.') && !line.starts_with('\'')) return {{}, std::move(line)};
  const std::string_view control = withoutBlanksBefore(std::string_view(line).substr(1));
  const std::string_view request = control.substr(0, control.find_first_of(" \t\\"));
  const std::string_view rest = control.substr(request.size());
  return {request.empty() ? "." : std::string(request), std::string(withoutBlanksBefore(rest))};
}

bool isDefinition(std::string_view request) {
  return request == "de" || request == "de1" || request == "am" || request == "ig";
}

// The condition at the start of the line: one letter, a number, or texts that are compared.
std::string_view conditionOf(std::string_view line) {
  std::size_t end = line.starts_with('!') ? 1 : 0;
  if (end >= line.size()) return line;
  const char first = line[end];
  if (std::string_view("rdmcFS").find(first) != std::string_view::npos) {
    end = line.find_first_not_of(" \t", end + 1);
    return line.substr(0, line.find_first_of(" \t", end));
  }
  if (first == '\'' || first == '"') {
    for (int marks = 0; marks < 2 && end != std::string_view::npos; ++marks) {
      end = line.find(first, end + 1);
    }
    return line.substr(0, end == std::string_view::npos ? end : end + 1);
  }
  if (first >= 'a' && first <= 'z') return line.substr(0, end + 1);
  while (end < line.size() && line[end] != ' ' && line[end] != '\t') {
    if (line.substr(end).starts_with("\\{")) break;
    end += line[end] == '\\' ? 2 : 1;
  }
  return line.substr(0, end);
}

// What stands there, if it is on this line.
std::optional<std::string> inBranch(std::string_view branch) {
  if (branch.starts_with("\\{")) branch.remove_prefix(2);
  if (trimmed(branch).empty()) return std::nullopt;
  return std::string(branch);
}

}  // namespace

std::optional<std::string_view> RoffLines::nextRaw() {
  if (rest_.empty()) return std::nullopt;
  const std::size_t end = std::min(rest_.find('\n'), rest_.size());
  std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// Goes on in the next line where its end is escaped.
std::string RoffLines::joinedLine() {
  std::string joined;
  while (const auto line = nextRaw()) {
    const std::size_t comment = commentAt(*line);
    const std::string_view shown = line->substr(0, comment);
    joined += shown;
    if (comment < line->size() || !endsWithEscape(shown)) break;
    joined.pop_back();
  }
  return joined;
}

std::optional<RoffLine> RoffLines::next() {
  for (int conditions = 0; pending_ || !rest_.empty();) {
    conditions = pending_ ? conditions + 1 : 0;
    if (conditions > MOST_CONDITIONS_A_LINE) pending_.emplace();
    RoffLine line = lineOf(pending_ ? *std::exchange(pending_, std::nullopt) : joinedLine());
    if (line.request == ".") continue;
    if (isDefinition(line.request)) {
      skipDefinition(line);
    } else if (line.request == "ds" || line.request == "as") {
      define(line);
    } else if (line.request == "if" || line.request == "ie" || line.request == "while") {
      pending_ = behindCondition(line);
    } else if (line.request == "el") {
      pending_ = behindElse(line);
    } else {
      return line;
    }
  }
  return std::nullopt;
}

void RoffLines::define(const RoffLine& line) {
  const std::string_view name = firstWord(line.rest);
  std::string_view value = withoutBlanksBefore(std::string_view(line.rest).substr(name.size()));
  if (value.starts_with('"')) value.remove_prefix(1);
  const std::string_view before = line.request == "as" ? strings_.value(name) : std::string_view();
  strings_.define(name, std::string(before) + std::string(value));
}

// Up to "..", or to the request that is named behind the macro.
void RoffLines::skipDefinition(const RoffLine& line) {
  const auto words = roffArguments(line.rest);
  const std::size_t place = line.request == "ig" ? 0 : 1;
  const std::string end = place < words.size() ? words[place] : ".";
  while (const auto inner = nextRaw()) {
    const bool isControl = inner->starts_with('.');
    if (isControl && withoutBlanksBefore(inner->substr(1)).starts_with(end)) return;
    if (place == 1 && !words.empty() && inner->find("\\$") != std::string_view::npos) {
      printing_.insert(words[0]);
    }
  }
}

bool RoffLines::holds(std::string_view condition) const {
  const std::size_t negations = std::min(condition.find_first_not_of('!'), condition.size());
  if (negations > 0) return holds(condition.substr(negations)) == (negations % 2 == 0);
  if (condition == "n" || condition == "o" || condition == "\\n(.g" || condition == "\\n[.g]") {
    return true;
  }
  if (condition.starts_with('d')) return strings_.isDefined(trimmed(condition.substr(1)));
  if (condition.starts_with('\'') || condition.starts_with('"')) {
    const std::size_t middle = condition.find(condition[0], 1);
    if (middle == std::string_view::npos) return false;
    std::string_view second = condition.substr(middle + 1);
    if (second.ends_with(condition[0])) second.remove_suffix(1);
    return shownText(condition.substr(1, middle - 1), strings_) == shownText(second, strings_);
  }
  return false;
}

// Passes over what a line with this rest begins, as far as its braces reach.
void RoffLines::skipBranch(std::string_view line) {
  std::size_t opened = count(line, "\\{");
  std::size_t closed = count(line, "\\}");
  while (opened > closed) {
    const auto inner = nextRaw();
    if (!inner) return;
    opened += count(*inner, "\\{");
    closed += count(*inner, "\\}");
  }
}

std::optional<std::string> RoffLines::behindCondition(const RoffLine& line) {
  const std::string_view condition = conditionOf(line.rest);
  std::string_view branch =
      withoutBlanksBefore(std::string_view(line.rest).substr(condition.size()));
  const bool isTaken = line.request != "while" && holds(condition);
  if (line.request == "ie") branches_.push_back(isTaken);
  if (!isTaken) {
    skipBranch(branch);
    return std::nullopt;
  }
  return inBranch(branch);
}

std::optional<std::string> RoffLines::behindElse(const RoffLine& line) {
  const bool isTaken = !branches_.empty() && !branches_.back();
  if (!branches_.empty()) branches_.pop_back();
  if (!isTaken) {
    skipBranch(line.rest);
    return std::nullopt;
  }
  return inBranch(line.rest);
}

std::vector<std::string> roffArguments(std::string_view rest) {
  std::vector<std::string> words;
  for (rest = withoutBlanksBefore(rest); !rest.empty(); rest = withoutBlanksBefore(rest)) {
    const bool isQuoted = rest.front() == '"';
    if (isQuoted) rest.remove_prefix(1);
    std::string word;
    while (!rest.empty()) {
      if (isQuoted && rest.starts_with("\"\"")) {
        rest.remove_prefix(1);
      } else if (isQuoted ? rest.front() == '"' : isBlank(rest.front())) {
        rest.remove_prefix(1);
        break;
      }
      const std::size_t length = rest.front() == '\\' ? 2 : 1;  // an escaped blank is no end
      word += rest.substr(0, length);
      rest.remove_prefix(std::min(length, rest.size()));
    }
    words.push_back(std::move(word));
  }
  return words;
}

}  // namespace norvast::extractor
