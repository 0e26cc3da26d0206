#include "document/document_builder.h"

#include <algorithm>
#include <utility>

#include "text/ascii.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// U+00A0 keeps words on one line, U+00AD says where a word may be parted: both are about looks
// alone, and a search for the word would not find it.
constexpr std::string_view NO_BREAK_SPACE = "\xC2\xA0";
constexpr std::string_view SOFT_HYPHEN = "\xC2\xAD";

bool isControl(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F;
}

// All bytes of a scalar but its first have the bits 10 in front (The Unicode Standard, table 3-6).
bool startsScalar(char character) { return (static_cast<unsigned char>(character) & 0xC0) != 0x80; }

// The leading scalars of the text, at most `left`, which is lowered by their number.
std::string_view takeScalars(std::string_view text, std::size_t& left) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (!startsScalar(text[end])) continue;
    if (left == 0) break;
    --left;
  }
  return text.substr(0, end);
}

// Line breaks of one kind, no other control characters, no blanks behind or empty lines around. The
// indentation of a single line means nothing.
std::string cleanLines(std::string_view text) {
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    char character = text[at];
    if (character == '\r') {
      if (at + 1 < text.size() && text[at + 1] == '\n') continue;
      character = '\n';
    }
    if (character == '\n') {
      clean.resize(clean.find_last_not_of(" \t") + 1);  // npos + 1 is 0: nothing else was there
      if (clean.empty()) continue;
    } else if (isControl(character) && character != '\t') {
      continue;
    }
    clean += character;
  }
  clean.resize(clean.find_last_not_of(" \t\n") + 1);
  if (clean.find('\n') == std::string::npos) clean.erase(0, clean.find_first_not_of(" \t"));
  return clean;
}

std::string valid(std::string text) {
  return validUtf8Length(text) == text.size() ? text : repairUtf8(std::move(text));
}

}  // namespace

void appendRunning(std::string& into, std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    char character = text[at];
    if (character == NO_BREAK_SPACE[0]) {
      const std::string_view pair = text.substr(at, 2);
      if (pair == SOFT_HYPHEN || pair == NO_BREAK_SPACE) ++at;
      if (pair == SOFT_HYPHEN) continue;
      if (pair == NO_BREAK_SPACE) character = ' ';
    }
    if (isAsciiSpace(character)) {
      if (!into.empty() && into.back() != ' ' && into.back() != '\n') into += ' ';
    } else if (!isControl(character)) {
      into += character;
    }
  }
}

std::string collapsed(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  appendRunning(result, text);
  if (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

DocumentBuilder::DocumentBuilder(std::string method, std::size_t limitCharacters)
    : left_(limitCharacters) {
  document_.method = std::move(method);
}

void DocumentBuilder::setTitle(std::string_view title) {
  if (document_.title.empty()) document_.title = valid(collapsed(title));
}

void DocumentBuilder::setAuthor(std::string_view author) {
  if (document_.author.empty()) document_.author = valid(collapsed(author));
}

void DocumentBuilder::add(DocumentBlock::Kind kind, std::string_view text) {
  append({kind, collapsed(text)});
}

void DocumentBuilder::addLines(DocumentBlock::Kind kind, std::string_view text) {
  append({kind, cleanLines(text)});
}

void DocumentBuilder::append(DocumentBlock block) {
  block.text = valid(std::move(block.text));
  block.text.resize(takeScalars(block.text, left_).size());
  if (!block.text.empty()) document_.blocks.push_back(std::move(block));
}

ReadDocument DocumentBuilder::take() {
  const auto& blocks = document_.blocks;
  if (std::all_of(blocks.begin(), blocks.end(), [](const DocumentBlock& block) {
        return block.kind == DocumentBlock::Kind::part;
      })) {
    return ReadFailure::noText;
  }
  return std::move(document_);
}

}  // namespace norvast
