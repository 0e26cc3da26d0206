#include "indexer/analysis/value_table.h"

#include <algorithm>
#include <array>

#include "indexer/analysis/lines.h"
#include "text/ascii.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t FEWEST_LINES = 4;

std::size_t digitsIn(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isAsciiDigit));
}

// 2026-05-14, [14/May/2026:, 10:21:07, 1715600000, May 14 10:21:07
bool beginsWithTime(std::string_view line) {
  const std::string_view leading = line.substr(0, 16);
  return digitsIn(leading) >= 5 && leading.find_first_of(":-/.") != std::string_view::npos;
}

bool isMostlyNumbers(std::string_view line) {
  const auto isLetter = [](char character) {
    return asciiLowerCase(character) != character || (character >= 'a' && character <= 'z') ||
           static_cast<unsigned char>(character) >= 0x80;
  };
  const std::size_t digits = digitsIn(line);
  return digits > 0 &&
         digits * 2 > static_cast<std::size_t>(std::count_if(line.begin(), line.end(), isLetter));
}

constexpr std::string_view SEPARATORS = "\t,;|";
using Separators = std::array<std::size_t, SEPARATORS.size()>;

Separators separatorsIn(std::string_view line) {
  Separators counts{};
  for (std::size_t which = 0; which < counts.size(); ++which) {
    counts[which] =
        static_cast<std::size_t>(std::count(line.begin(), line.end(), SEPARATORS[which]));
  }
  return counts;
}

bool haveSameFields(const Separators& one, const Separators& other) {
  for (std::size_t which = 0; which < one.size(); ++which) {
    if (one[which] >= 2 && one[which] == other[which]) return true;
  }
  return false;
}

}  // namespace

bool isTableOfValues(std::string_view piece) {
  std::size_t lines = 0;
  std::size_t values = 0;
  Separators before{};
  for (const std::string_view line : linesOf(piece)) {
    if (line.empty()) continue;
    ++lines;
    const Separators here = separatorsIn(line);
    const bool hasFields = haveSameFields(here, before);
    if (hasFields || beginsWithTime(line) || isMostlyNumbers(line)) ++values;
    before = here;
  }
  return lines >= FEWEST_LINES && values * 4 >= lines * 3;
}

}  // namespace norvast::indexer
