#include "extractor/notebook_reader.h"

#include <algorithm>
#include <string>

#include "extractor/reading_bounds.h"
#include "json/json_parser.h"
#include "text/utf8.h"

namespace norvast {
namespace {

using Kind = DocumentBlock::Kind;

// A text is one string or an array of its lines (nbformat 4, "The notebook file format").
std::string textOf(const Json::Object& object, std::string_view key) {
  std::string text;
  const Json* value = member(object, key);
  if (value == nullptr) return text;
  if (value->string() != nullptr) return *value->string();
  if (value->array() == nullptr) return text;
  for (const Json& line : *value->array()) {
    if (line.string() != nullptr) text += *line.string();
  }
  return text;
}

const Json::Array* arrayOf(const Json::Object& object, std::string_view key) {
  const Json* value = member(object, key);
  return value == nullptr ? nullptr : value->array();
}

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

void addOutput(const Json::Object& output, DocumentBuilder& document) {
  document.addLines(Kind::paragraph, textOf(output, "text"));
  const Json* data = member(output, "data");
  if (data == nullptr || data->object() == nullptr) return;
  document.addLines(Kind::paragraph, textOf(*data->object(), "text/plain"));
}

void addCell(const Json::Object& cell, DocumentBuilder& document) {
  const Json* type = member(cell, "cell_type");
  const bool isMarkdown =
      type != nullptr && type->string() != nullptr && *type->string() == "markdown";
  const std::string source = textOf(cell, "source");
  if (isMarkdown) {
    addMarkdown(source, document);
  } else {
    document.addLines(Kind::paragraph, source);
  }
  const Json::Array* outputs = arrayOf(cell, "outputs");
  if (outputs == nullptr) return;
  for (const Json& output : *outputs) {
    if (output.object() != nullptr) addOutput(*output.object(), document);
  }
}

}  // namespace

ReadDocument readNotebook(std::string_view bytes, std::size_t limitCharacters) {
  if (bytes.size() > MOST_NOTEBOOK_BYTES) return ReadFailure::tooLarge;
  if (validUtf8Length(bytes) != bytes.size()) return ReadFailure::decodingFailed;
  const auto notebook = parseJson(bytes);
  const Json::Object* object = notebook ? notebook->object() : nullptr;
  const Json::Array* cells = object == nullptr ? nullptr : arrayOf(*object, "cells");
  if (cells == nullptr) return ReadFailure::decodingFailed;
  DocumentBuilder document("notebook", limitCharacters);
  for (const Json& cell : *cells) {
    if (document.isFull()) break;
    if (cell.object() != nullptr) addCell(*cell.object(), document);
  }
  return document.take();
}

}  // namespace norvast
