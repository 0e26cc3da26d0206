// Table row: collects the cells of one row of a table, whatever they hold.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/document_builder.h"

namespace norvast {

class TableRow {
 public:
  // Begins a cell. Those beyond MOST_CELLS_A_ROW are left out.
  void startCell() { ++cells_; }

  // Adds text to the cell, as a paragraph of its own.
  void add(std::string_view text);

  // Adds the row to the document and begins a new one: the cells that are not empty, separated by
  // a tab, or as a paragraph when there is only one, as in tables that are drawn for their frame.
  void finish(DocumentBuilder& document);

 private:
  std::size_t cells_ = 0;
  std::size_t lastCell_ = 0;
  std::string text_;
  bool hasSeveral_ = false;
};

}  // namespace norvast
