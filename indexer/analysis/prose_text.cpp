#include "indexer/analysis/prose_text.h"

#include "indexer/analysis/lines.h"
#include "text/ascii.h"
#include "text/byte_set.h"

namespace norvast::indexer {
namespace {

// The length of "<tag ...>" at the beginning of a text; 0 when there is none.
std::size_t tagLength(std::string_view text) {
  if (text.size() < 3 || (!isAsciiLetter(text[1]) && text[1] != '/' && text[1] != '!')) return 0;
  const std::size_t end = text.find('>');
  const bool isAddress = text.substr(0, end).find_first_of("@:") < text.find(' ');
  return end == std::string_view::npos || end > 200 || isAddress ? 0 : end + 1;
}

// Of "[words](address)" at the beginning of a text: how long the whole is and its words; a length
// of 0 when there is none.
struct Link {
  std::size_t length = 0;
  std::string_view words;
};
Link linkAt(std::string_view text) {
  const std::size_t close = text.find("](");
  if (close == std::string_view::npos || close > 300) return {};
  if (text.substr(1, close - 1).find('[') != std::string_view::npos) return {};
  const std::size_t end = text.find(')', close);
  if (end == std::string_view::npos || end - close > 500) return {};
  return {end + 1, text.substr(1, close - 1)};
}

// How many bytes at the beginning of a text are markup, and which words stand for them.
Link markupAt(std::string_view text) {
  switch (text.front()) {
    case '<':
      return {tagLength(text), {}};
    case '!': {
      if (!text.substr(1).starts_with('[')) return {};
      const Link link = linkAt(text.substr(1));
      return {link.length > 0 ? link.length + 1 : 0, {}};
    }
    case '[':
      return linkAt(text);
    case '*':
    case '`': {
      const std::size_t end = text.find_first_not_of(text.front());
      return {end == std::string_view::npos ? text.size() : end, {}};
    }
    default:
      return {};
  }
}

}  // namespace

std::string proseText(std::string_view text) {
  std::string line = onOneLine(text);
  static constexpr ByteSet MARKUP("<[*`");
  if (!MARKUP.isIn(line)) return line;
  std::string prose;
  prose.reserve(line.size());
  for (std::string_view rest = line; !rest.empty();) {
    const Link markup = markupAt(rest);
    if (markup.length == 0) {
      prose += rest.front();
      rest.remove_prefix(1);
    } else {
      prose += markup.words;
      rest.remove_prefix(markup.length);
    }
  }
  return onOneLine(prose);
}

}  // namespace norvast::indexer
