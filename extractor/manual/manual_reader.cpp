#include "extractor/manual/manual_reader.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "document/reading_bounds.h"
#include "extractor/manual/mdoc_line.h"
#include "extractor/manual/roff_lines.h"
#include "extractor/manual/roff_table.h"
#include "text/ascii.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// A longer paragraph is cut in two.
constexpr std::size_t MOST_PARAGRAPH_BYTES = 100'000;

enum class Action {
  words,      // shows its arguments
  runOn,      // shows them without blanks between, as each has another font
  paragraph,  // ends the paragraph
  lineBreak,
  heading,
  title,
  tag,       // the next line names an item
  item,      // its first argument does
  verbatim,  // lines stay as they are from here
  filled,    // until here
  block,     // of mdoc: of lines that stay or not
  link,      // its argument is where the words up to linkEnd lead
  linkEnd,
  reference,  // to a page and its section
  option,
  table,
  equation,
  spacing,  // between words of mdoc, or none
  nothing
};

Action actionOf(std::string_view macro) {
  using enum Action;
  static const std::map<std::string_view, Action> ACTIONS = {
      {"B", words},      {"I", words},      {"R", words},      {"SM", words},     {"SB", words},
      {"CW", words},     {"BI", runOn},     {"BR", runOn},     {"IB", runOn},     {"IR", runOn},
      {"RB", runOn},     {"RI", runOn},     {"P", paragraph},  {"PP", paragraph}, {"LP", paragraph},
      {"Pp", paragraph}, {"Lp", paragraph}, {"HP", paragraph}, {"RS", paragraph}, {"RE", paragraph},
      {"sp", paragraph}, {"Sp", paragraph}, {"YS", paragraph}, {"Bl", paragraph}, {"El", paragraph},
      {"Rs", paragraph}, {"Re", paragraph}, {"br", lineBreak}, {"SH", heading},   {"Sh", heading},
      {"SS", heading},   {"Ss", heading},   {"TH", title},     {"Dt", title},     {"TP", tag},
      {"TQ", tag},       {"IP", item},      {"nf", verbatim},  {"EX", verbatim},  {"Vb", verbatim},
      {"CS", verbatim},  {"fi", filled},    {"EE", filled},    {"Ve", filled},    {"CE", filled},
      {"Bd", block},     {"Ed", filled},    {"UR", link},      {"MT", link},      {"UE", linkEnd},
      {"ME", linkEnd},   {"MR", reference}, {"OP", option},    {"TS", table},     {"EQ", equation},
      {"SY", words},     {"IX", nothing},   {"UC", nothing},   {"DT", nothing},   {"PD", nothing},
      {"AT", nothing},   {"BS", nothing},   {"BE", nothing},   {"VS", nothing},   {"VE", nothing},
      {"AS", nothing},   {"UN", nothing},   {"TE", nothing},   {"EN", nothing},   {"Dd", nothing},
      {"Os", nothing},   {"Tg", nothing},   {"Bk", nothing},   {"Ek", nothing},   {"Bf", nothing},
      {"Ef", nothing},   {"Sm", spacing},   {"Rv", nothing},   {"Db", nothing},   {"Hf", nothing}};
  const auto found = ACTIONS.find(macro);
  if (found != ACTIONS.end()) return found->second;
  // Requests are in small letters and show nothing.
  return !macro.empty() && isAsciiCapital(macro[0]) ? words : nothing;
}

class ManualText {
 public:
  ManualText(std::string_view text, DocumentBuilder& document)
      : lines_(text), mdoc_(lines_.strings()), document_(document) {}

  void read() {
    for (auto line = lines_.next(); line && !document_.isFull(); line = lines_.next()) {
      line->request.empty() ? takeText(line->rest) : takeMacro(*line);
    }
    endParagraph();
    document_.setTitle(pageName_);
  }

 private:
  std::string shown(std::string_view text) const { return shownText(text, lines_.strings()); }

  std::string shownWords(const std::vector<std::string>& words, std::string_view between) const {
    return shown(joined(words, between));
  }

  void takeText(const std::string& line) {
    if (isVerbatim_) {
      text_ += shown(line) + '\n';
      return;
    }
    if (trimmed(line).empty()) return endParagraph();
    if (line.starts_with(' ') || line.starts_with('\t')) breakLine();
    append(shown(line));
  }

  void takeMacro(const RoffLine& line) {
    const auto arguments = roffArguments(line.rest);
    if (line.request == "It") return takeMdocItem(arguments);
    if (MdocLine::isMacro(line.request)) return takeMdoc(line.request, arguments);
    takeManual(line, arguments);
  }

  void takeMdoc(const std::string& macro, const std::vector<std::string>& arguments) {
    const bool isOwnLine = macro == "D1" || macro == "Dl";
    if (isOwnLine) breakLine();
    append(mdoc_.shown(macro, arguments));
    if (isOwnLine || isVerbatim_ || macro == "Xc") breakLine();
  }

  void takeMdocItem(const std::vector<std::string>& arguments) {
    endParagraph();
    append(mdoc_.shown("No", arguments));
    if (arguments.empty() || arguments.back() != "Xo") breakLine();
  }

  void takeManual(const RoffLine& line, const std::vector<std::string>& arguments) {
    switch (lines_.printsArguments(line.request) ? ownAction(line.request)
                                                 : actionOf(line.request)) {
      case Action::words:
        return append(shownWords(arguments, " "));
      case Action::runOn:
        return append(shownWords(arguments, ""));
      case Action::paragraph:
        return endParagraph();
      case Action::lineBreak:
        return breakLine();
      case Action::heading:
        return startSection(arguments);
      case Action::title:
        if (arguments.size() > 1) pageName_ = shown(arguments[0] + "(" + arguments[1] + ")");
        return;
      case Action::tag:
        endParagraph();
        isTag_ = true;
        return;
      case Action::item:
        endParagraph();
        if (!arguments.empty()) append(shown(arguments[0]));
        return breakLine();
      case Action::verbatim:
        breakLine();
        isVerbatim_ = true;
        return;
      case Action::filled:
        isVerbatim_ = false;
        return breakLine();
      case Action::block:
        endParagraph();
        isVerbatim_ = !arguments.empty() && arguments[0] != "-filled" && arguments[0] != "-ragged";
        return;
      case Action::link:
        link_ = arguments.empty() ? std::string() : shown(arguments[0]);
        return;
      case Action::linkEnd:
        append("<" + std::exchange(link_, {}) + ">" + shownWords(arguments, ""));
        return;
      case Action::reference:
        if (arguments.size() > 1) append(shown(arguments[0] + "(" + arguments[1] + ")"));
        if (arguments.size() > 2) append(ROFF_JOIN + shown(arguments[2]));
        return;
      case Action::option:
        return append("[" + shownWords(arguments, " ") + "]");
      case Action::table:
        endParagraph();
        return goOn(addRoffTable(lines_, document_));
      case Action::equation:
        return skipEquation();
      case Action::spacing:
        return mdoc_.setSpaced(arguments.empty() || arguments[0] != "off");
      case Action::nothing:
        return;
    }
  }

  // Of a macro that the page defines anew, perhaps under the name of one that is known.
  static Action ownAction(std::string_view macro) {
    const Action known = actionOf(macro);
    return known == Action::nothing && macro != "IX" ? Action::words : known;
  }

  void startSection(const std::vector<std::string>& arguments) {
    endParagraph();
    isVerbatim_ = false;
    isHeading_ = true;
    if (arguments.empty()) return;  // the next line is it
    append(MdocLine::isMacro(arguments[0]) ? mdoc_.shown("No", arguments)
                                           : shownWords(arguments, " "));
  }

  // Takes a line, or a part of one, of the paragraph or heading at hand.
  void append(std::string_view text) {
    const bool joins = text.starts_with(ROFF_JOIN) || text_.ends_with(ROFF_JOIN);
    if (text_.ends_with(ROFF_JOIN)) text_.pop_back();
    if (!joins && !text_.empty()) text_ += ' ';
    if (isVerbatim_) {
      text_ += text;
      if (!text.ends_with(ROFF_JOIN)) text_ += '\n';
      return;
    }
    appendRunning(text_, text);
    if (text.size() > 1 && text.ends_with(ROFF_JOIN)) text_ += ROFF_JOIN;
    if (isHeading_ && !text_.empty()) return endParagraph();
    if (isTag_) breakLine();
    isTag_ = false;
    if (text_.size() > MOST_PARAGRAPH_BYTES) endParagraph();
  }

  void breakLine() {
    if (!text_.empty() && !text_.ends_with('\n')) text_ += '\n';
  }

  void endParagraph() {
    const std::string text = std::exchange(text_, {});
    if (isHeading_ && !text.empty()) {
      document_.add(Kind::heading, text);
      isHeading_ = false;
      ++sections_;
      isNameNext_ = sections_ == 1;
      return;
    }
    if (isNameNext_ && !trimmed(text).empty()) {
      isNameNext_ = false;
      if (text.find(" - ") != std::string::npos || text.find(" – ") != std::string::npos) {
        document_.setTitle(text);
      }
    }
    document_.addLines(Kind::paragraph, text);
  }

  void skipEquation() {
    auto line = lines_.next();
    while (line && line->request != "EN" && !line->isSection()) line = lines_.next();
    goOn(line);
  }

  // With the line that a table or an equation ended at: its own end, or what it left open.
  void goOn(const std::optional<RoffLine>& line) {
    if (line && line->isSection()) takeMacro(*line);
  }

  RoffLines lines_;
  MdocLine mdoc_;
  DocumentBuilder& document_;
  std::string text_;  // of the paragraph at hand
  std::string link_;
  std::string pageName_;  // "LS(1)"
  int sections_ = 0;
  bool isHeading_ = false;
  bool isNameNext_ = false;  // the paragraph at hand says what the page is about
  bool isTag_ = false;       // the line at hand names an item
  bool isVerbatim_ = false;
};

}  // namespace

ReadDocument readManual(std::string_view bytes, std::size_t limitCharacters) {
  const Extent extent = bytes.size() > MOST_PART_BYTES ? Extent::leading : Extent::whole;
  const auto text = decodedText(bytes.substr(0, MOST_PART_BYTES), extent);
  if (!text) return ReadFailure::unreadableEncoding;
  DocumentBuilder document("manual page", limitCharacters);
  ManualText(*text, document).read();
  return document.take();
}

}  // namespace norvast::extractor
