#include "extractor/page/notebook_reader.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "document/reading_bounds.h"
#include "json/json_text.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// A text is one string or an array of its lines (nbformat 4, "The notebook file format").
std::string textOf(const JsonText& object, std::string_view key) {
  const auto value = object.member(key);
  if (!value) return {};
  std::string text = value->string().value_or("");
  for (const JsonText& line : value->elements()) text += line.string().value_or("");
  return text;
}

std::vector<JsonText> elementsOf(const JsonText& object, std::string_view key) {
  const auto value = object.member(key);
  return value ? value->elements() : std::vector<JsonText>();
}

// One to six number signs and a blank begin a heading (CommonMark, section 4.2).
void addMarkdown(std::string_view text, DocumentBuilder& document) {
  std::string paragraph;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    const std::size_t behindMarks = std::min(line.find_first_not_of('#'), line.size());
    if (behindMarks > 0 && behindMarks <= 6 && line.substr(behindMarks).starts_with(' ')) {
      document.addLines(Kind::paragraph, paragraph);
      paragraph.clear();
      document.add(Kind::heading, line.substr(behindMarks));
    } else {
      paragraph += line;
    }
  }
  document.addLines(Kind::paragraph, paragraph);
}

// What a cell printed stands as "text"; what it shows has several forms in "data", by their types
// of media: pictures, HTML, and as a rule a plain text.
void addOutput(const JsonText& output, DocumentBuilder& document) {
  document.addLines(Kind::paragraph, textOf(output, "text"));
  const auto data = output.member("data");
  if (data) document.addLines(Kind::paragraph, textOf(*data, "text/plain"));
}

// {"cell_type": "markdown" or "code" or "raw", "source": TEXT, "outputs": [...]}
void addCell(const JsonText& cell, DocumentBuilder& document) {
  const std::string source = textOf(cell, "source");
  if (textOf(cell, "cell_type") == "markdown") {
    addMarkdown(source, document);
  } else {
    document.addLines(Kind::paragraph, source);
  }
  for (const JsonText& output : elementsOf(cell, "outputs")) addOutput(output, document);
}

}  // namespace

ReadDocument readNotebook(std::string_view bytes, std::size_t limitCharacters) {
  if (bytes.size() > MOST_NOTEBOOK_BYTES) return ReadFailure::tooLarge;
  if (validUtf8Length(bytes) != bytes.size()) return ReadFailure::decodingFailed;
  const auto notebook = JsonText::parse(bytes);
  const auto cells = notebook ? notebook->member("cells") : std::nullopt;
  if (!cells || !cells->isArray()) return ReadFailure::decodingFailed;
  DocumentBuilder document("notebook", limitCharacters);
  for (const JsonText& cell : cells->elements()) {
    if (document.isFull()) break;
    addCell(cell, document);
  }
  return document.take();
}

}  // namespace norvast::extractor
