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
  // Of the styles in `styles` (ECMA-376, 18.8), which may be nullptr. Days are counted from 1904
  // when `from1904`, otherwise from 1900 as ECMA-376 does, 18.17.4.1.
  CellFormats(const ZipPart* styles, bool from1904);

  // The number in `value` as a person would read it: "2026-03-01", "2026-03-01 14:30", "14:30:05"
  // or "36:00" (hours) where the style shows that of it, else with 15 digits at the most. `style`
  // is the cell's style number as it is written in the file; empty for none. What is no number
  // stays as it is.
  std::string shown(std::string_view value, std::string_view style) const;

 private:
  std::vector<NumberFormat> formats_;  // by style number
  bool from1904_;
};

}  // namespace norvast::extractor
