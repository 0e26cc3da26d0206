// Document builder: collects what a reader finds, cleaned and bounded.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"

namespace norvast {

using ReadDocument = std::variant<Document, ReadFailure>;

class DocumentBuilder {
 public:
  // `limitCharacters` counts the Unicode scalars of all blocks together.
  DocumentBuilder(std::string method, std::size_t limitCharacters);

  // One line each, white space run together. The first that is not empty stays.
  void setTitle(std::string_view title);
  void setAuthor(std::string_view author);

  // Adds a block: white space run together and cut at both ends, invalid UTF-8 repaired; nothing
  // when that leaves none. Cut where the limit falls.
  void add(DocumentBlock::Kind kind, std::string_view text);

  // The same, but the text's line breaks, tabs and indentation stay as they are.
  void addLines(DocumentBlock::Kind kind, std::string_view text);

  // Adds a block as it is, but for invalid UTF-8.
  void append(DocumentBlock block);

  // True when nothing more is taken: the reader may stop.
  bool isFull() const { return left_ == 0; }
  std::size_t charactersLeft() const { return left_; }

  // The document, or noText when it has none but the names of its parts.
  ReadDocument take();

 private:
  Document document_;
  std::size_t left_;
};

// Appends text whose white space only separates: every run of it, no-break spaces included, comes
// to one blank, none at the start or behind a line feed. Soft hyphens and control characters go.
void appendRunning(std::string& into, std::string_view text);

// The text by that rule alone, without a blank at its end.
std::string collapsed(std::string_view text);

}  // namespace norvast
