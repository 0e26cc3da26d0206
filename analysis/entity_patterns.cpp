#include "analysis/entity_patterns.h"

#include <algorithm>
#include <array>
#include <string>

#include "text/unicode.h"

namespace norvast {
namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool contains(const auto& list, std::string_view word) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

// A date of three numbers of these lengths between two separators.
bool isDateLike(std::string_view word, char separator, std::size_t firstDigits,
                std::size_t lastDigits) {
  const std::size_t one = word.find(separator);
  if (one == std::string_view::npos) return false;
  const std::size_t two = word.find(separator, one + 1);
  if (two == std::string_view::npos) return false;
  const std::string_view first = word.substr(0, one);
  const std::string_view middle = word.substr(one + 1, two - one - 1);
  const std::string_view last = word.substr(two + 1);
  return isDigits(first) && isDigits(middle) && isDigits(last) && first.size() <= firstDigits &&
         middle.size() <= 2 && last.size() <= lastDigits && first.size() + last.size() >= 5 &&
         std::max(first.size(), last.size()) == 4;
}

}  // namespace

bool isEmailAddress(std::string_view word) {
  const std::size_t at = word.find('@');
  if (at == std::string_view::npos || at == 0 || word.find('@', at + 1) != std::string_view::npos)
    return false;
  const std::string_view domain = word.substr(at + 1);
  const std::size_t dot = domain.rfind('.');
  return dot != std::string_view::npos && dot > 0 && domain.size() - dot > 2;
}

bool isWebAddress(std::string_view word) {
  return word.size() > 8 &&
         ((word.starts_with("http://") && word.size() > 10) ||
          (word.starts_with("https://") && word.size() > 11) || word.starts_with("www."));
}

bool isNumericDate(std::string_view word) {
  if (word.empty() || !isDigit(word.front())) return false;
  return isDateLike(word, '-', 4, 2) || isDateLike(word, '.', 2, 4) || isDateLike(word, '/', 2, 4);
}

bool isMonth(std::string_view word) {
  static constexpr std::array<std::string_view, 24> MONTHS = {
      "January",   "February", "March",    "April",    "May",  "June", "July", "August",
      "September", "October",  "November", "December", "Jan",  "Feb",  "Mar",  "Apr",
      "Jun",       "Jul",      "Aug",      "Sep",      "Sept", "Oct",  "Nov",  "Dec"};
  return word.size() >= 3 && word.front() >= 'A' && word.front() <= 'S' && contains(MONTHS, word);
}

bool isDayOfMonth(std::string_view word) {
  if (word.empty() || !isDigit(word.front())) return false;
  for (const std::string_view ordinal : {"st", "nd", "rd", "th"}) {
    if (word.ends_with(ordinal)) word.remove_suffix(ordinal.size());
  }
  if (!isDigits(word) || word.size() > 2) return false;
  const int day = std::stoi(std::string(word));
  return day >= 1 && day <= 31;
}

bool isYear(std::string_view word) {
  return word.size() == 4 && isDigits(word) && (word.front() == '1' || word.front() == '2');
}

bool isHouseNumber(std::string_view word) {
  if (!word.empty() && word.back() >= 'a' && word.back() <= 'z') word.remove_suffix(1);
  return isDigits(word) && word.size() <= 4;
}

bool isStreetWord(std::string_view word) {
  static constexpr std::array<std::string_view, 9> STREETS = {
      "Street", "Road", "Avenue", "Lane", "Drive", "Boulevard", "Square", "Terrace", "Crescent"};
  if (contains(STREETS, word)) return true;
  for (const std::string_view end : {"strasse", "straße", "gasse", "weg", "platz", "allee"}) {
    if (word.ends_with(end) && word.size() > end.size() + 2) return true;
  }
  return false;
}

bool isCapitalised(std::string_view word) {
  std::size_t letters = 0;
  bool mayBeCapital = true;
  bool isName = true;
  forEachCluster(word, [&](std::string_view cluster) {
    const bool isJoint = cluster == "-" || cluster == "'" || cluster == "’";
    const LetterCase letterCase = letterCaseOf(cluster);
    if (isJoint) {
      isName = isName && letters > 0;
      mayBeCapital = true;
      return;
    }
    isName = isName &&
             (letterCase == LetterCase::capital ? mayBeCapital
                                                : letterCase == LetterCase::small && letters > 0);
    mayBeCapital = letterCase == LetterCase::small && letters < 3;
    ++letters;
  });
  return isName && letters > 1;
}

}  // namespace norvast
