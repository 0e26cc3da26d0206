#include "indexer/analysis/entity_patterns.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "language/name_words.h"
#include "text/ascii.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

bool isDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isAsciiDigit);
}

// Labels of letters, digits and hyphens between dots, two or more, the last one of letters (RFC
// 1123, section 2.1).
bool isHostName(std::string_view text) {
  std::size_t labels = 0;
  for (;;) {
    const std::size_t end = std::min(text.find('.'), text.size());
    const std::string_view label = text.substr(0, end);
    const auto mayStand = [](char character) {
      return isAsciiAlphanumeric(character) || character == '-';
    };
    if (label.empty() || label.size() > 63 || label.front() == '-' || label.back() == '-' ||
        !std::all_of(label.begin(), label.end(), mayStand)) {
      return false;
    }
    ++labels;
    if (end == text.size()) {
      return labels > 1 && label.size() > 1 &&
             std::all_of(label.begin(), label.end(), isAsciiLetter);
    }
    text.remove_prefix(end + 1);
  }
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

// "Rebweg" has three bytes before its ending; "Umweg" is no street.
constexpr std::size_t SHORTEST_STREET_NAME_BYTES = 2;

constexpr std::size_t SHORTEST_WEB_ADDRESS = std::string_view("www.ab").size();

}  // namespace

bool isEmailAddress(std::string_view word) {
  const std::size_t at = word.find('@');
  if (at == std::string_view::npos || at == 0 || at > 64) return false;
  const std::string_view name = word.substr(0, at);
  const auto mayStand = [](char character) {
    return isAsciiAlphanumeric(character) ||
           std::string_view(".!#$%&'*+/=?^_`{|}~-").find(character) != std::string_view::npos;
  };
  return name.front() != '.' && name.back() != '.' && name.find("..") == std::string_view::npos &&
         std::all_of(name.begin(), name.end(), mayStand) && isHostName(word.substr(at + 1));
}

std::string_view webAddressIn(std::string_view word) {
  if (word.size() < SHORTEST_WEB_ADDRESS) return {};
  std::size_t start = word.find("http");
  if (start == std::string_view::npos) start = word.find("www.");
  if (start == std::string_view::npos) return {};
  std::string_view address = word.substr(start);
  address = address.substr(0, address.find_first_of("\"<>\\^`{|}'"));
  std::size_t host = 0;
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (address.starts_with(scheme)) host = scheme.size();
  }
  if (host == 0 && !address.starts_with("www.")) return {};
  // A bracket that the address did not open ends it, as punctuation that closes a sentence does.
  for (std::size_t at = host, open = 0; at < address.size(); ++at) {
    if (address[at] == '(') ++open;
    if (address[at] == ']' || (address[at] == ')' && open-- == 0)) {
      address = address.substr(0, at);
      break;
    }
  }
  while (!address.empty() &&
         std::string_view(".,;:!?*_").find(address.back()) != std::string_view::npos)
    address.remove_suffix(1);
  const std::size_t end = std::min(address.find_first_of("/?#", host), address.size());
  const std::string_view server = address.substr(host, end - host);
  return isHostName(server.substr(0, server.find(':'))) ? address : std::string_view();
}

bool isNumericDate(std::string_view word) {
  if (word.empty() || !isAsciiDigit(word.front())) return false;
  return isDateLike(word, '-', 4, 2) || isDateLike(word, '.', 2, 4) || isDateLike(word, '/', 2, 4);
}

bool isDayOfMonth(std::string_view word) {
  if (word.empty() || !isAsciiDigit(word.front())) return false;
  static const std::vector<std::string_view> ORDINALS = wordsOfAll(&Language::ordinalEndings);
  for (const std::string_view ordinal : ORDINALS) {
    if (word.ends_with(ordinal)) word.remove_suffix(ordinal.size());
  }
  if (word.ends_with('.')) word.remove_suffix(1);  // German "14.", Spanish "1.º" without its sign
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
  if (rolesOf(word).has(WordRole::street)) return true;
  static const std::vector<std::string_view> ENDINGS = wordsOfAll(&Language::streetEndings);
  return std::any_of(ENDINGS.begin(), ENDINGS.end(), [word](std::string_view ending) {
    return word.ends_with(ending) && word.size() > ending.size() + SHORTEST_STREET_NAME_BYTES;
  });
}

bool isCapitalised(std::string_view word) {
  if (letterCaseOf(word) != LetterCase::capital) return false;
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

}  // namespace norvast::indexer
