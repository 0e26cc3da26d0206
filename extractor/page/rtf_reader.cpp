#include "extractor/page/rtf_reader.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "document/reading_bounds.h"
#include "document/table_row.h"
#include "extractor/page/rtf_tokens.h"
#include "text/ascii.h"
#include "text/encoding.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// Where the text of a group goes.
enum class Destination { body, note, aside, title, author, fonts, styles, nowhere };

// Those of control words that begin a destination; others with "\*" before them lead nowhere.
Destination destinationOf(std::string_view word, Destination otherwise) {
  using enum Destination;
  static const std::map<std::string_view, Destination> DESTINATIONS = {
      {"footnote", note},       {"annotation", note},   {"header", aside},
      {"headerl", aside},       {"headerr", aside},     {"headerf", aside},
      {"footer", aside},        {"footerl", aside},     {"footerr", aside},
      {"footerf", aside},       {"title", title},       {"author", author},
      {"fonttbl", fonts},       {"stylesheet", styles}, {"colortbl", nowhere},
      {"info", nowhere},        {"pict", nowhere},      {"objdata", nowhere},
      {"themedata", nowhere},   {"listtable", nowhere}, {"listoverridetable", nowhere},
      {"fldinst", nowhere},     {"filetbl", nowhere},   {"nonshppict", nowhere},
      {"revtbl", nowhere},      {"datastore", nowhere}, {"xmlnstbl", nowhere},
      {"operator", nowhere},    {"generator", nowhere}, {"listtext", nowhere},
      {"pntext", nowhere},      {"atnid", nowhere},     {"atnauthor", nowhere},
      {"bkmkstart", nowhere},   {"bkmkend", nowhere},   {"xe", nowhere},
      {"latentstyles", nowhere}};
  const auto found = DESTINATIONS.find(word);
  return found == DESTINATIONS.end() ? otherwise : found->second;
}

std::string_view symbol(std::string_view word) {
  static const std::map<std::string_view, std::string_view> SYMBOLS = {
      {"tab", "\t"},    {"line", "\n"},     {"emdash", "—"},    {"endash", "–"}, {"lquote", "‘"},
      {"rquote", "’"},  {"ldblquote", "“"}, {"rdblquote", "”"}, {"bullet", "•"}, {"emspace", " "},
      {"enspace", " "}, {"qmspace", " "},   {"~", " "},         {"_", "-"},      {"{", "{"},
      {"}", "}"},       {"\\", "\\"}};
  const auto found = SYMBOLS.find(word);
  return found == SYMBOLS.end() ? std::string_view() : found->second;
}

// The encoding of a font by its character set, "\fcharsetN"; empty for that of the document.
std::string encodingOfCharset(int charset) {
  static const std::map<int, const char*> ENCODINGS = {
      {77, "macintosh"},     {128, "windows-932"},  {129, "windows-949"},  {134, "windows-936"},
      {136, "windows-950"},  {161, "windows-1253"}, {162, "windows-1254"}, {163, "windows-1258"},
      {177, "windows-1255"}, {178, "windows-1256"}, {186, "windows-1257"}, {204, "windows-1251"},
      {222, "windows-874"},  {238, "windows-1250"}};
  const auto found = ENCODINGS.find(charset);
  return found == ENCODINGS.end() ? std::string() : found->second;
}

// A file (Rich Text Format Specification 1.9.1) is one group in braces, with groups within it:
//
//   {\rtf1\ansicpg1252             the encoding of bytes above 127, unless a font says more
//     {\fonttbl{\f0\fcharset204 Arial;}}    \f0 is in the encoding of that character set
//     {\stylesheet{\s1 heading 1;}}         \s1 makes a heading of a paragraph
//     {\*\listtable ...}           "\*": to be left out by whoever does not know the word
//     \pard\s1 Title\par           a paragraph: its properties, its text, its end
//     \pard\intbl A\cell B\cell\row         a row of a table
//     \u8364 ?                     U+20AC, with one character for older readers
//   }
//
// What a control word sets holds to the end of its group; a group begins with all that holds
// around it.
class RtfText {
 public:
  explicit RtfText(DocumentBuilder& document) : document_(document) {}

  // False when groups are too deep.
  bool read(std::string_view bytes) {
    RtfTokens tokens(bytes);
    for (RtfToken token = tokens.next();
         token.kind != RtfToken::Kind::finished && !isDone_ && !document_.isFull();
         token = tokens.next()) {
      if (groups_.size() > MOST_RTF_DEPTH) return false;
      take(token);
    }
    endParagraph();
    row_.finish(document_);
    return true;
  }

 private:
  struct Group {
    Destination destination = Destination::body;
    std::string encoding;     // of its font; empty for that of the document
    int fallbackLength = 1;   // characters behind each "\u" for readers that do not know it
    bool isOptional = false;  // "\*" has been read, and nothing behind it
  };

  Group& group() { return groups_.back(); }

  void take(const RtfToken& token) {
    switch (token.kind) {
      case RtfToken::Kind::groupStart:
        decodeBytes();
        groups_.push_back(group());
        group().isOptional = false;
        fallback_ = 0;
        break;
      case RtfToken::Kind::groupEnd:
        endGroup();
        break;
      case RtfToken::Kind::word:
        word(token);
        break;
      case RtfToken::Kind::byte:
        if (fallback_ > 0) {
          --fallback_;
        } else if (token.number) {
          bytes_ += static_cast<char>(*token.number);
        }
        break;
      default:
        text(token.text);
    }
  }

  void text(std::string_view text) {
    const auto skipped = std::min(fallback_, text.size());
    fallback_ -= skipped;
    bytes_ += text.substr(skipped);
  }

  void endGroup() {
    decodeBytes();
    fallback_ = 0;
    const Destination ended = group().destination;
    if (groups_.size() == 1) return;
    groups_.pop_back();
    isDone_ = groups_.size() == 1;
    if (ended == group().destination) return;
    if (ended == Destination::note) document_.addLines(Kind::note, std::exchange(side_, {}));
    if (ended == Destination::aside) document_.addLines(Kind::aside, std::exchange(side_, {}));
    if (ended == Destination::title) document_.setTitle(std::exchange(side_, {}));
    if (ended == Destination::author) document_.setAuthor(std::exchange(side_, {}));
    side_.clear();
  }

  void word(const RtfToken& token) {
    decodeBytes();
    const std::string_view name = token.text;
    const int number = token.number.value_or(0);
    if (name == "*") {
      group().isOptional = true;
      return;
    }
    const Destination otherwise =
        std::exchange(group().isOptional, false) ? Destination::nowhere : group().destination;
    if (group().destination != Destination::nowhere || name == "title" || name == "author") {
      group().destination = destinationOf(name, otherwise);
    }
    if (name == "u") {
      unicode(number);
    } else if (name == "uc") {
      group().fallbackLength = std::max(number, 0);
    } else if (const auto sign = symbol(name); !sign.empty()) {
      append(sign);
    } else if (!encodingWord(name, number)) {
      paragraphWord(name, number);
    }
  }

  bool encodingWord(std::string_view name, int number) {
    if (name == "ansicpg") {
      encoding_ = "windows-" + std::to_string(number);
    } else if (name == "mac") {
      encoding_ = "macintosh";
    } else if (name == "f") {
      font_ = number;
      group().encoding = fonts_[number];
    } else if (name == "fcharset") {
      if (group().destination == Destination::fonts) fonts_[font_] = encodingOfCharset(number);
    } else {
      return false;
    }
    return true;
  }

  void paragraphWord(std::string_view name, int number) {
    const bool isBody = group().destination == Destination::body;
    if (name == "s") {
      style_ = number;
      isHeading_ = isBody && headings_.contains(number);
    } else if (name == "outlinelevel") {
      isHeading_ = isBody && number < 9;
      if (group().destination == Destination::styles) headings_.insert(style_);
    } else if (name == "pard") {
      isHeading_ = false;
      isInTable_ = false;
    } else if (name == "intbl") {
      isInTable_ = true;
    } else if (name == "par" || name == "sect" || name == "page") {
      if (isBody && !isInTable_) endParagraph();
      if (!isBody || isInTable_) append("\n");
    } else if (name == "cell" && isBody) {
      row_.startCell();
      row_.add(std::exchange(text_, {}));
    } else if (name == "row" && isBody) {
      row_.finish(document_);
    }
  }

  // Half of a character beyond the first plane waits for the other.
  void unicode(int number) {
    const auto unit = static_cast<std::uint32_t>(number) & 0xFFFF;
    fallback_ = static_cast<std::size_t>(group().fallbackLength);
    if (unit >= 0xD800 && unit < 0xDC00) {
      high_ = unit;
      return;
    }
    char32_t scalar = unit;
    if (unit >= 0xDC00 && unit < 0xE000) {
      if (high_ == 0) return;
      scalar = 0x10000 + ((high_ - 0xD800) << 10) + (unit - 0xDC00);
    }
    high_ = 0;
    std::string character;
    appendUtf8(character, scalar);
    append(character);
  }

  // Bytes are collected until a control word or the end of a group, since a character of an East
  // Asian encoding may be written as two "\'xx". What is encoded by the font ends where the font
  // may change.
  void decodeBytes() {
    if (bytes_.empty()) return;
    const std::string bytes = std::exchange(bytes_, {});
    if (isAscii(bytes)) return append(bytes);
    const std::string& encoding = group().encoding.empty() ? encoding_ : group().encoding;
    auto text = decodedFrom(bytes, encoding);
    if (!text) text = decodedFrom(bytes, "windows-1252");
    append(text.value_or(""));
  }

  void append(std::string_view text) {
    switch (group().destination) {
      case Destination::body:
        text_ += text;
        break;
      case Destination::note:
      case Destination::aside:
      case Destination::title:
      case Destination::author:
        side_ += text;
        break;
      case Destination::styles:
        if (asciiLowerCase(text).starts_with("heading")) headings_.insert(style_);
        break;
      default:
        break;
    }
  }

  void endParagraph() {
    decodeBytes();
    row_.finish(document_);
    const std::string text = std::exchange(text_, {});
    if (isHeading_) {
      document_.add(Kind::heading, text);
    } else {
      document_.addLines(Kind::paragraph, text);
    }
  }

  DocumentBuilder& document_;
  std::vector<Group> groups_{1};
  std::map<int, std::string> fonts_;  // encodings by number
  std::set<int> headings_;            // styles by number
  TableRow row_;
  std::string encoding_ = "windows-1252";  // of the document
  std::string bytes_;                      // not yet decoded
  std::string text_;                       // of the paragraph at hand
  std::string side_;                       // of a note or the like
  std::size_t fallback_ = 0;               // characters still to be left out behind a "\u"
  std::uint32_t high_ = 0;
  int font_ = 0;
  int style_ = 0;
  bool isHeading_ = false;
  bool isInTable_ = false;
  bool isDone_ = false;  // the group that is the whole file has ended
};

}  // namespace

ReadDocument readRtf(std::string_view bytes, std::size_t limitCharacters) {
  if (!bytes.starts_with("{\\rtf")) return ReadFailure::decodingFailed;
  DocumentBuilder document("RTF", limitCharacters);
  if (!RtfText(document).read(bytes)) return ReadFailure::tooLarge;
  return document.take();
}

}  // namespace norvast::extractor
