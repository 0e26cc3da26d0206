#include "text/sentences.h"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/utext.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "text/ascii.h"

namespace norvast {
namespace {

struct CloseText {
  void operator()(UText* text) const { utext_close(text); }
};

// One iterator serves all texts of a language: making one takes longer than cutting most texts.
icu::BreakIterator* sentenceBoundaries(const std::string& language) {
  static std::map<std::string, std::unique_ptr<icu::BreakIterator>, std::less<>> known;
  auto& boundaries = known[language];
  if (boundaries == nullptr) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale((language + "@ss=standard").c_str());
    boundaries.reset(icu::BreakIterator::createSentenceInstance(locale, status));
  }
  return boundaries.get();
}

}  // namespace

std::vector<std::string_view> sentencesOf(std::string_view text, const std::string& language) {
  std::vector<std::string_view> sentences;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UText, CloseText> source(
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
  icu::BreakIterator* boundaries = sentenceBoundaries(language);
  if (boundaries == nullptr || U_FAILURE(status) != 0) return sentences;
  boundaries->setText(source.get(), status);

  std::size_t start = 0;
  for (std::int32_t end = boundaries->next(); end != icu::BreakIterator::DONE;
       end = boundaries->next()) {
    const std::string_view sentence =
        trimmed(text.substr(start, static_cast<std::size_t>(end) - start));
    if (!sentence.empty()) sentences.push_back(sentence);
    start = static_cast<std::size_t>(end);
  }
  return sentences;
}

}  // namespace norvast
