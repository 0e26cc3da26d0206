#include "platform/unicode.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/utext.h>

#include <limits>
#include <memory>

#include "platform/utf8.h"

namespace norvast {
namespace {

constexpr std::size_t NO_LIMIT = std::numeric_limits<std::size_t>::max();

struct ClusterSpan {
  std::size_t clusters = 0;
  std::size_t bytes = 0;  // that they take, from the beginning of the text
};

// In ASCII only a carriage return and line feed make one cluster of two characters (rule GB3).
ClusterSpan walkAscii(std::string_view text, std::size_t limit) {
  ClusterSpan span;
  while (span.bytes < text.size() && span.clusters < limit) {
    span.bytes += text.substr(span.bytes).starts_with("\r\n") ? 2 : 1;
    ++span.clusters;
  }
  return span;
}

struct CloseText {
  void operator()(UText* text) const { utext_close(text); }
};

ClusterSpan walk(std::string_view text, std::size_t limit) {
  if (isAscii(text)) return walkAscii(text, limit);

  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UText, CloseText> source(
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
  const std::unique_ptr<icu::BreakIterator> boundaries(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  if (U_FAILURE(status) != 0) return walkAscii(text, limit);  // no Unicode data: count bytes
  boundaries->setText(source.get(), status);

  ClusterSpan span;
  while (span.clusters < limit) {
    const std::int32_t boundary = boundaries->next();
    if (boundary == icu::BreakIterator::DONE) break;
    span.bytes = static_cast<std::size_t>(boundary);
    ++span.clusters;
  }
  return span;
}

}  // namespace

std::size_t countClusters(std::string_view text) { return walk(text, NO_LIMIT).clusters; }

std::string_view firstClusters(std::string_view text, std::size_t limit) {
  return text.substr(0, walk(text, limit).bytes);
}

std::string canonicalForm(std::string_view text) {
  std::string form;
  if (isAscii(text)) return form.assign(text);

  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) != 0) return form.assign(text);
  icu::StringByteSink<std::string> sink(&form);
  const icu::StringPiece piece(text.data(), static_cast<std::int32_t>(text.size()));
  composer->normalizeUTF8(0, piece, sink, nullptr, status);
  if (U_FAILURE(status) != 0) form.assign(text);
  return form;
}

}  // namespace norvast
