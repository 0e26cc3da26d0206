#include "indexer/analysis/outline.h"

#include <utility>

#include "indexer/analysis/plain_text_outline.h"
#include "text/utf8.h"

namespace norvast::indexer {
namespace {

Stretch::Kind kindOf(DocumentBlock::Kind kind) {
  switch (kind) {
    case DocumentBlock::Kind::heading:
      return Stretch::Kind::heading;
    case DocumentBlock::Kind::part:
      return Stretch::Kind::part;
    case DocumentBlock::Kind::tableRow:
      return Stretch::Kind::tableRow;
    case DocumentBlock::Kind::note:
      return Stretch::Kind::note;
    case DocumentBlock::Kind::detail:
      return Stretch::Kind::detail;
    case DocumentBlock::Kind::paragraph:
    case DocumentBlock::Kind::aside:
      break;
  }
  return Stretch::Kind::prose;
}

bool standClose(Stretch::Kind above, Stretch::Kind below) {
  return above == below && (above == Stretch::Kind::tableRow || above == Stretch::Kind::detail);
}

// Two rows or details are separated by a line feed, all else by an empty line.
void append(Outline& outline, Stretch::Kind kind, std::string_view text) {
  if (!outline.stretches.empty()) {
    outline.text += standClose(outline.stretches.back().kind, kind) ? "\n" : "\n\n";
  }
  outline.stretches.push_back({kind, outline.text.size(), text.size()});
  outline.text += text;
}

}  // namespace

std::string_view nameIn(std::string_view heading) {
  constexpr std::size_t LONGEST_BYTES = 500;
  return firstBytes(heading, LONGEST_BYTES);
}

Outline outlineOf(Document document, std::string_view name) {
  Outline outline;
  outline.title = nameIn(document.title);
  outline.author = nameIn(document.author);
  auto& blocks = document.blocks;
  if (blocks.size() == 1 && blocks.front().kind == DocumentBlock::Kind::paragraph) {
    outline.text = std::move(blocks.front().text);
    outline.stretches = stretchesOfPlainText(outline.text, plainTextKindOf(outline.text, name));
    return outline;
  }
  for (const DocumentBlock& block : blocks) {
    if (block.kind != DocumentBlock::Kind::aside) append(outline, kindOf(block.kind), block.text);
  }
  return outline;
}

}  // namespace norvast::indexer
