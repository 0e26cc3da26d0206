// Cell formats: what the number in a spreadsheet's cell is shown as.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "extractor/office/number_format.h"
#include "extractor/office/zip_parts.h"

namespace norvast::extractor {

class CellFormats {
 public:
  // Takes the styles from the part `styles` (ECMA-376-1, 18.8), which may be nullptr. Days are
  // counted from 1904 if `from1904`, else from 1900 (ECMA-376-1, 18.17.4.1).
  CellFormats(const ZipPart* styles, bool from1904);

  // Returns the number in `value` as a person would read it: "2026-03-01", "2026-03-01 14:30",
  // "14:30:05" or "36:00" (hours) if the style shows a date or time, else with at most 15 digits.
  // `style` is the number of the cell's style as the file writes it, empty for none. A value that
  // is no number is returned unchanged.
  std::string shown(std::string_view value, std::string_view style) const;

 private:
  std::vector<NumberFormat> formats_;  // by style number
  bool from1904_;
};

}  // namespace norvast::extractor
