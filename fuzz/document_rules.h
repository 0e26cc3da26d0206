// What holds for every document that a reader gives: it has text, no more than was asked for, all
// of it UTF-8, and survives its way to the one who asked.
#pragma once

#include <variant>

#include "document/document_builder.h"
#include "fuzz/target.h"
#include "text/utf8.h"

namespace norvast {

inline void mustKeepTheRules(const ReadDocument& read, std::size_t limitCharacters) {
  const auto* document = std::get_if<Document>(&read);
  if (document == nullptr) return;
  mustHold(!document->blocks.empty());
  const Document bounded = withinBounds(*document);
  mustHold(parseDocument(writeDocument(bounded)) == bounded);
  for (const DocumentBlock& block : document->blocks) {
    mustHold(block.text.size() <= 4 * limitCharacters);
    mustHold(validUtf8Length(block.text) == block.text.size());
  }
}

}  // namespace norvast
