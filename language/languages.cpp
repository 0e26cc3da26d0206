#include "language/languages.h"

#include <algorithm>

namespace norvast {
namespace {

constexpr char BETWEEN_WORDS = ' ';
constexpr char BETWEEN_PHRASES = '|';

std::vector<std::string_view> entriesOf(std::string_view list, char separator) {
  std::vector<std::string_view> entries;
  while (!list.empty()) {
    const std::size_t length = std::min(list.find(separator), list.size());
    if (length > 0) entries.push_back(list.substr(0, length));
    list.remove_prefix(std::min(length + 1, list.size()));
  }
  return entries;
}

// Two languages may share an entry ("º" behind a day): a rule that cuts it off must do so once.
std::vector<std::string_view> entriesOfAll(std::string_view Language::*field, char separator) {
  std::vector<std::string_view> all;
  for (const Language* language : LANGUAGES) {
    for (const std::string_view entry : entriesOf(language->*field, separator)) {
      if (std::find(all.begin(), all.end(), entry) == all.end()) all.push_back(entry);
    }
  }
  return all;
}

}  // namespace

LanguageBits bitOf(const Language& language) {
  const auto* const found = std::find(LANGUAGES.begin(), LANGUAGES.end(), &language);
  return languageBit(static_cast<std::size_t>(found - LANGUAGES.begin()));
}

std::vector<std::string_view> wordsOf(std::string_view list) {
  return entriesOf(list, BETWEEN_WORDS);
}

std::vector<std::string_view> wordsOfAll(std::string_view Language::*field) {
  return entriesOfAll(field, BETWEEN_WORDS);
}

std::vector<std::string_view> phrasesOfAll(std::string_view Language::*field) {
  return entriesOfAll(field, BETWEEN_PHRASES);
}

}  // namespace norvast
