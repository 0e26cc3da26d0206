// Number format: the parts of a date that a format of a spreadsheet's numbers shows, and what a
// number is shown as by it.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

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

// The day from which a spreadsheet counts its days.
enum class DayCount { from1900, from1904 };

// Returns the number as a person would read it: "2026-03-01", "2026-03-01 14:30", "14:30:05" or
// "36:00" (hours) where the format shows that of it, else with 15 digits at the most. A number that
// is no day up to the year 9999 is shown with digits whatever its format is.
std::string shownNumber(double number, const NumberFormat& format, DayCount count);

}  // namespace norvast
