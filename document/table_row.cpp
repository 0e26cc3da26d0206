#include "document/table_row.h"

#include <utility>

#include "document/reading_bounds.h"

namespace norvast {

void TableRow::add(std::string_view text) {
  if (cells_ > MOST_CELLS_A_ROW) return;
  const std::string clean = collapsed(text);
  if (clean.empty()) return;
  if (!text_.empty()) {
    const bool isSameCell = lastCell_ == cells_;
    text_ += isSameCell ? ' ' : '\t';
    hasSeveral_ = hasSeveral_ || !isSameCell;
  }
  lastCell_ = cells_;
  text_ += clean;
}

void TableRow::finish(DocumentBuilder& document) {
  using Kind = DocumentBlock::Kind;
  document.append({hasSeveral_ ? Kind::tableRow : Kind::paragraph, std::move(text_)});
  *this = TableRow();
}

}  // namespace norvast
