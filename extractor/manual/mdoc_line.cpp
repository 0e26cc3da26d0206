#include "extractor/manual/mdoc_line.h"

#include <map>
#include <set>
#include <utility>

namespace norvast::extractor {
namespace {

// What is put around what a macro encloses, up to the end of the line.
struct Enclosure {
  std::string_view opening;
  std::string_view closing;
};

const Enclosure* enclosureOf(std::string_view macro) {
  static const std::map<std::string_view, Enclosure> ENCLOSURES = {
      {"Op", {"[", "]"}},  {"Bq", {"[", "]"}}, {"Pq", {"(", ")"}},   {"Aq", {"<", ">"}},
      {"Brq", {"{", "}"}}, {"Dq", {"“", "”"}}, {"Qq", {"\"", "\""}}, {"Sq", {"‘", "’"}},
      {"Ql", {"‘", "’"}},  {"In", {"<", ">"}}};
  const auto found = ENCLOSURES.find(macro);
  return found == ENCLOSURES.end() ? nullptr : &found->second;
}

// Those that end in a macro of their own, maybe on another line.
std::string_view openingOf(std::string_view macro) {
  static const std::map<std::string_view, std::string_view> OPENINGS = {
      {"Oo", "["},  {"Bo", "["}, {"Po", "("},  {"Ao", "<"},
      {"Bro", "{"}, {"Do", "“"}, {"Qo", "\""}, {"So", "‘"}};
  const auto found = OPENINGS.find(macro);
  return found == OPENINGS.end() ? std::string_view() : found->second;
}

std::string_view closingOf(std::string_view macro) {
  static const std::map<std::string_view, std::string_view> CLOSINGS = {
      {"Oc", "]"}, {"Bc", "]"},  {"Pc", ")"}, {"Ac", ">"}, {"Brc", "}"},
      {"Dc", "”"}, {"Qc", "\""}, {"Sc", "’"}, {"Fc", ")"}};
  const auto found = CLOSINGS.find(macro);
  return found == CLOSINGS.end() ? std::string_view() : found->second;
}

std::string_view wordOf(std::string_view macro) {
  static const std::map<std::string_view, std::string_view> WORDS = {
      {"Ux", "UNIX"},    {"Bx", "BSD"},     {"Nx", "NetBSD"},    {"Fx", "FreeBSD"},
      {"Ox", "OpenBSD"}, {"Bsx", "BSD/OS"}, {"Dx", "DragonFly"}, {"At", "AT&T UNIX"},
      {"Nd", "–"},       {"Lb", "library"}};
  const auto found = WORDS.find(macro);
  return found == WORDS.end() ? std::string_view() : found->second;
}

// Those that leave their words as they are.
bool isPlain(std::string_view macro) {
  static const std::set<std::string_view> PLAIN = {
      "Ad", "An", "Ar", "Cd", "Cm", "D1", "Dl", "Dv", "Em", "Er", "Ev", "Fa", "Fl", "Fn",
      "Fo", "Fr", "Ft", "Ic", "Li", "Lk", "Ms", "Mt", "Nm", "No", "Ns", "Pa", "Pf", "Ap",
      "St", "Sx", "Sy", "Ta", "Tn", "Va", "Vt", "Xc", "Xo", "Xr", "Ex", "Eo", "Ec", "%A",
      "%B", "%C", "%D", "%I", "%J", "%N", "%O", "%P", "%Q", "%R", "%T", "%U", "%V"};
  return PLAIN.contains(macro);
}

bool isClosingMark(std::string_view word) {
  return word.size() == 1 && std::string_view(".,:;)]?!").find(word) != std::string_view::npos;
}

bool isOpeningMark(std::string_view word) { return word == "(" || word == "["; }

}  // namespace

bool MdocLine::isMacro(std::string_view name) {
  return isPlain(name) || enclosureOf(name) != nullptr || !openingOf(name).empty() ||
         !closingOf(name).empty() || !wordOf(name).empty();
}

void MdocLine::add(std::string_view word) {
  if (!joins_ && isSpaced_) text_ += ' ';
  text_ += word;
  joins_ = false;
}

// Adds what stands close behind the word before it, also when that is on the line before.
void MdocLine::close(std::string_view word) {
  joins_ = true;
  if (text_.empty()) text_ = ROFF_JOIN;
  add(word);
}

// What a macro shows by itself.
void MdocLine::begin(std::string_view macro) {
  const bool isLongFlag = macro == "Fl" && macro_ == "Fl" && argumentsOfMacro_ == 0;
  end();
  macro_ = macro;
  argumentsOfMacro_ = 0;
  if (isLongFlag) {
    joins_ = true;
  } else if (const Enclosure* enclosure = enclosureOf(macro)) {
    add(enclosure->opening);
    closing_.push_back(enclosure->closing);
    joins_ = true;
  } else if (const auto opening = openingOf(macro); !opening.empty()) {
    add(opening);
    joins_ = true;
  } else if (const auto closing = closingOf(macro); !closing.empty()) {
    close(closing);
  } else if (const auto word = wordOf(macro); !word.empty()) {
    add(word);
  } else if (macro == "Ns") {
    close({});
    joins_ = true;
  } else if (macro == "Ap") {
    close("'");
    joins_ = true;
  } else if (macro == "Ta") {
    text_ += '\t';
    joins_ = true;
  } else if (macro == "Ex") {
    add("The " + name_ + " utility exits 0 on success, and >0 if an error occurs.");
  }
}

// What a macro shows that had no arguments, or behind them.
void MdocLine::end() {
  const std::string_view macro = std::exchange(macro_, {});
  if (macro == "Fl" && argumentsOfMacro_ == 0) add("-");
  if (macro == "Nm" && argumentsOfMacro_ == 0 && !name_.empty()) add(name_);
  if (macro == "Ar" && argumentsOfMacro_ == 0) add("file ...");
  if (macro == "Fn" && argumentsOfMacro_ > 0) close(argumentsOfMacro_ == 1 ? "()" : ")");
  if (macro == "Fo" && argumentsOfMacro_ > 0) text_ += ROFF_JOIN;
}

void MdocLine::take(const std::string& argument) {
  std::string word = shownText(argument, strings_);
  if (isClosingMark(word)) {
    if (macro_ == "Fl" || macro_ == "Nm" || macro_ == "Fn") end();
    return close(word);
  }
  if (isOpeningMark(word)) {
    add(word);
    joins_ = true;
    return;
  }
  const std::size_t before = argumentsOfMacro_++;
  if (macro_ == "Ex" || word.empty()) return;
  if (macro_ == "Fl") word.insert(0, word == "|" ? "" : "-");
  if (macro_ == "Nm" && name_.empty()) name_ = word;
  if (macro_ == "Xr" && before == 1) return close("(" + word + ")");
  if (macro_ == "Fn" && before == 1) return close("(" + word);
  if ((macro_ == "Fn" && before > 1) || (macro_ == "Fa" && before > 0)) return close(", " + word);
  if (macro_ == "St" && word.starts_with("-p")) word = "IEEE Std " + word.substr(2);
  if (macro_ == "Fo") word += '(';
  add(word);
  if (macro_ == "Pf" && before == 0) joins_ = true;
}

std::string MdocLine::shown(std::string_view macro, const std::vector<std::string>& arguments) {
  text_.clear();
  closing_.clear();
  joins_ = true;
  begin(macro);
  std::size_t count = arguments.size();
  while (count > 0 && isClosingMark(arguments[count - 1])) --count;
  for (std::size_t at = 0; at < count; ++at) {
    const bool isCalled = isMacro(arguments[at]) && macro_ != "Ex";
    isCalled ? begin(arguments[at]) : take(arguments[at]);
  }
  const bool joinsNext = !isSpaced_ || (joins_ && !text_.empty());
  end();
  for (; !closing_.empty(); closing_.pop_back()) close(closing_.back());
  for (; count < arguments.size(); ++count) close(arguments[count]);
  if (joinsNext) text_ += ROFF_JOIN;
  return std::move(text_);
}

}  // namespace norvast::extractor
