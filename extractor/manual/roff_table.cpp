#include "extractor/manual/roff_table.h"

#include <string>
#include <string_view>

#include "document/table_row.h"
#include "text/ascii.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

// Options up to ";", formats up to a line that ends in ".", then a row a line, whose cells may go
// on over lines between "T{" and "T}".
class RoffTable {
 public:
  RoffTable(const RoffStrings& strings, DocumentBuilder& document)
      : strings_(strings), document_(document) {}

  void take(const RoffLine& line) {
    if (line.request == "T&") {
      isFormat_ = true;
    } else if (isFormat_) {
      takeFormat(trimmed(line.rest));
    } else if (isInBlock_) {
      takeBlock(line);
    } else if (line.request.empty()) {
      row_.startCell();
      takeCells(line.rest);
    }
  }

  void finish() { row_.finish(document_); }

 private:
  void takeFormat(std::string_view line) {
    constexpr std::string_view OPTION = "tab(";
    const std::size_t option = line.find(OPTION);
    const bool isOption = line.ends_with(';') && option != std::string_view::npos;
    if (isOption) separator_ = firstCharacter(line.substr(option + OPTION.size()));
    isFormat_ = !line.ends_with('.');
  }

  void takeBlock(const RoffLine& line) {
    if (!line.rest.starts_with("T}")) {
      const bool isRunOn =
          line.request.size() == 2 && line.request.find_first_not_of("BIR") == std::string::npos;
      const auto words = joined(roffArguments(line.rest), isRunOn ? "" : " ");
      return row_.add(shownText(line.request.empty() ? line.rest : words, strings_));
    }
    isInBlock_ = false;
    const std::string_view behind = std::string_view(line.rest).substr(2);
    if (!behind.starts_with(separator_)) return finish();
    row_.startCell();
    takeCells(behind.substr(separator_.size()));
  }

  void takeCells(std::string_view line) {
    for (bool isLast = false; !isLast;) {
      const std::size_t end = line.find(separator_);
      isLast = end == std::string_view::npos;
      const std::string_view cell = trimmed(line.substr(0, end));
      isInBlock_ = cell == "T{";
      if (isInBlock_) return;
      const bool isRule = cell.find_first_not_of("_=") == std::string_view::npos;
      if (!isRule) row_.add(shownText(cell, strings_));
      if (isLast) return finish();
      row_.startCell();
      line.remove_prefix(end + separator_.size());
    }
  }

  const RoffStrings& strings_;
  DocumentBuilder& document_;
  TableRow row_;
  std::string separator_ = "\t";
  bool isFormat_ = true;
  bool isInBlock_ = false;
};

}  // namespace

std::optional<RoffLine> addRoffTable(RoffLines& lines, DocumentBuilder& document) {
  RoffTable table(lines.strings(), document);
  auto line = lines.next();
  for (; line && line->request != "TE" && !line->isSection() && !document.isFull();
       line = lines.next()) {
    table.take(*line);
  }
  table.finish();
  return line;
}

}  // namespace norvast::extractor
