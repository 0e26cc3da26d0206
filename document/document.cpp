#include "document/document.h"

#include <algorithm>
#include <utility>

#include "text/utf8.h"

namespace norvast {
namespace {

constexpr char END = '\x1e';
constexpr char METHOD = 'm';
constexpr char TITLE = 't';
constexpr char AUTHOR = 'w';
constexpr std::string_view BLOCKS = "phsrnad";

bool mayStand(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return (byte >= 0x20 && byte != 0x7f) || character == '\t' || character == '\n';
}

void append(std::string& bytes, char letter, std::string_view text) {
  if (text.empty()) return;
  bytes += letter;
  for (const char character : text) {
    if (mayStand(character)) bytes += character;
  }
  bytes += END;
}

bool isNameTooLong(const DocumentBlock& block) {
  using Kind = DocumentBlock::Kind;
  return (block.kind == Kind::heading || block.kind == Kind::part) &&
         block.text.size() > MOST_NAME_BYTES;
}

bool isWithinBounds(const Document& document) {
  return document.method.size() <= MOST_METHOD_BYTES && document.title.size() <= MOST_NAME_BYTES &&
         document.author.size() <= MOST_NAME_BYTES &&
         std::none_of(document.blocks.begin(), document.blocks.end(), isNameTooLong);
}

}  // namespace

Document withinBounds(Document document) {
  document.method.resize(firstBytes(document.method, MOST_METHOD_BYTES).size());
  document.title.resize(firstBytes(document.title, MOST_NAME_BYTES).size());
  document.author.resize(firstBytes(document.author, MOST_NAME_BYTES).size());
  for (DocumentBlock& block : document.blocks) {
    if (isNameTooLong(block)) block.kind = DocumentBlock::Kind::paragraph;
  }
  return document;
}

std::string pageName(int number) { return "Page " + std::to_string(number); }

std::string writeDocument(const Document& document) {
  std::string bytes;
  append(bytes, METHOD, document.method);
  append(bytes, TITLE, document.title);
  append(bytes, AUTHOR, document.author);
  for (const DocumentBlock& block : document.blocks) {
    append(bytes, static_cast<char>(block.kind), block.text);
  }
  return bytes;
}

std::optional<Document> parseDocument(std::string_view bytes) {
  if (validUtf8Length(bytes) != bytes.size()) return std::nullopt;
  Document document;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find(END);
    if (end == std::string_view::npos || end == 0) return std::nullopt;
    const char letter = bytes.front();
    std::string text(bytes.substr(1, end - 1));
    bytes.remove_prefix(end + 1);
    for (const char character : text) {
      if (!mayStand(character)) return std::nullopt;
    }
    if (letter == METHOD) {
      document.method = std::move(text);
    } else if (letter == TITLE) {
      document.title = std::move(text);
    } else if (letter == AUTHOR) {
      document.author = std::move(text);
    } else if (BLOCKS.find(letter) == std::string_view::npos) {
      return std::nullopt;
    } else if (!text.empty()) {
      document.blocks.push_back({static_cast<DocumentBlock::Kind>(letter), std::move(text)});
    }
  }
  if (!isWithinBounds(document)) return std::nullopt;
  return document;
}

std::string plainText(const Document& document) {
  using Kind = DocumentBlock::Kind;
  std::string text;
  Kind last = Kind::paragraph;
  for (const DocumentBlock& block : document.blocks) {
    if (block.kind == Kind::aside || block.kind == Kind::detail) continue;
    const bool isNextRow = block.kind == Kind::tableRow && last == Kind::tableRow;
    if (!text.empty()) text += isNextRow ? "\n" : "\n\n";
    text += block.text;
    last = block.kind;
  }
  return text;
}

}  // namespace norvast
