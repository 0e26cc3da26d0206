// Languages: the one list of all languages that the analysis knows, and how it is asked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "language/language.h"

namespace norvast {

extern const Language ENGLISH;
extern const Language GERMAN;
extern const Language FRENCH;
extern const Language SPANISH;
extern const Language ITALIAN;
extern const Language PORTUGUESE;
extern const Language DUTCH;

// English comes first: it stands in texts of all languages, and the others are measured by it.
inline constexpr std::array LANGUAGES = {&ENGLISH, &GERMAN,     &FRENCH, &SPANISH,
                                         &ITALIAN, &PORTUGUESE, &DUTCH};

// A set of languages: bit n stands for the language at place n of LANGUAGES.
using LanguageBits = std::uint32_t;
static_assert(LANGUAGES.size() <= 32);
inline constexpr LanguageBits ENGLISH_BIT = 1;

constexpr LanguageBits languageBit(std::size_t place) { return LanguageBits{1} << place; }

// The bit of a language, which must be one of LANGUAGES.
LanguageBits bitOf(const Language& language);

// The words of a list that blanks separate. Views into the list.
std::vector<std::string_view> wordsOf(std::string_view list);

// The words, or phrases, that any language has in that field, each once, in the order of LANGUAGES.
std::vector<std::string_view> wordsOfAll(std::string_view Language::*field);
std::vector<std::string_view> phrasesOfAll(std::string_view Language::*field);

}  // namespace norvast
