// Recognition languages: the names that text recognisers give the languages of a user.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The names of Tesseract's models for a reader of that POSIX locale ("de_CH.UTF-8"), joined by "+":
// its language, by its ISO 639-2 code, and English: "deu+eng". English alone ("eng") when the
// locale names no language, as "C" does.
std::string recognitionLanguages(std::string_view locale);

// Of the locale that the environment names for messages.
std::string recognitionLanguages();

}  // namespace norvast
