#include "text/recognition_languages.h"

#include <unicode/uloc.h>

#include <cstdlib>

namespace norvast {
namespace {

constexpr std::string_view ENGLISH = "eng";

// Chinese has a model for each of its scripts.
std::string modelName(std::string_view locale) {
  const std::string name(locale.substr(0, locale.find_first_of(".@")));
  std::string language = uloc_getISO3Language(name.c_str());
  if (language != "zho") return language;
  const bool isTraditional = name.starts_with("zh_TW") || name.starts_with("zh_HK");
  return isTraditional ? "chi_tra" : "chi_sim";
}

}  // namespace

std::string recognitionLanguages(std::string_view locale) {
  const std::string own = modelName(locale);
  if (own.empty() || own == ENGLISH) return std::string(ENGLISH);
  return own + "+" + std::string(ENGLISH);
}

std::string recognitionLanguages() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* locale = std::getenv(name);
    if (locale != nullptr && *locale != '\0') return recognitionLanguages(locale);
  }
  return std::string(ENGLISH);
}

}  // namespace norvast
