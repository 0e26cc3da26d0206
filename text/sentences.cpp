#include "text/sentences.h"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/utext.h>

#include <cstdint>
#include <memory>

#include "text/ascii.h"

namespace norvast {
namespace {

struct CloseText {
  void operator()(UText* text) const { utext_close(text); }
};

// One iterator serves all: making one takes longer than cutting most texts.
icu::BreakIterator* sentenceBoundaries() {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::BreakIterator> BOUNDARIES(
      icu::BreakIterator::createSentenceInstance(icu::Locale::getEnglish(), status));
  return BOUNDARIES.get();
}

}  // namespace

std::vector<std::string_view> sentencesOf(std::string_view text) {
  std::vector<std::string_view> sentences;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UText, CloseText> source(
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
  icu::BreakIterator* boundaries = sentenceBoundaries();
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
