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

// Returns what a code such as "yyyy\-mm\-dd hh:mm" shows (ECMA-376-1, 18.8.31), by its section for
// positive numbers.
NumberFormat numberFormat(std::string_view code);

// Returns what a format shows that files refer to by number alone (ECMA-376-1, 18.8.30).
NumberFormat builtInNumberFormat(int number);

}  // namespace norvast::extractor
