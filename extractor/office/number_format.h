// Number format: the parts of a date that a format of a spreadsheet's numbers shows.
#pragma once

#include <string_view>

namespace norvast::extractor {

struct NumberFormat {
  bool hasDate = false;
  bool hasTime = false;
  bool hasSeconds = false;  // besides
  bool isElapsed = false;   // the time counts beyond 24 hours, as working hours do

  bool isDate() const { return hasDate || hasTime; }
};

// Of a format that is written as a code, "yyyy\-mm\-dd hh:mm" (ECMA-376, 18.8.31), by its part for
// positive numbers.
NumberFormat numberFormat(std::string_view code);

// Of a format without a code of its own in the file (ECMA-376, 18.8.30).
NumberFormat builtInNumberFormat(int number);

}  // namespace norvast::extractor
