#include "analysis/passages.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "text/unicode.h"

namespace norvast {
namespace {

constexpr std::size_t MOST_CLUSTERS = 600;

// Looked at for one piece; one cluster of more bytes than this is cut like any text.
constexpr std::size_t WINDOW_BYTES = MOST_CLUSTERS * 64;

constexpr std::string_view BLANKS = " \t\r\n\f\v";

// What may end a piece, the better ends first. A piece ends behind them.
constexpr std::array<std::array<std::string_view, 6>, 4> ENDS = {{
    {"\n\n", "\n\r\n"},
    {". ", "! ", "? ", ".\n", "。", ".\""},
    {"\n"},
    {" ", "\t"},
}};

// Whether a cluster ends before `at`. In ASCII one always does behind a blank or a line feed.
bool isClusterBoundary(std::string_view text, std::size_t at) {
  if (at == text.size() || static_cast<unsigned char>(text[at]) < 0x80) return true;
  return firstClusters(text, countClusters(text.substr(0, at))).size() == at;
}

// The end of the piece that begins the window, of which `full` bytes fit: in the latter half of
// them, so that no piece is short for the sake of its end.
std::size_t endOfPiece(std::string_view window, std::size_t full) {
  const std::string_view half = window.substr(full / 2, full - full / 2);
  for (const auto& ends : ENDS) {
    std::size_t best = 0;
    for (const std::string_view end : ends) {
      const auto found = std::distance(
          half.begin(), std::find_end(half.begin(), half.end(), end.begin(), end.end()));
      const auto at = static_cast<std::size_t>(found);
      if (at < half.size()) best = std::max(best, full / 2 + at + end.size());
    }
    if (best > 0 && isClusterBoundary(window, best)) return best;
  }
  return full;
}

// The leading bytes of a text, not beyond the window and not inside a character.
std::string_view windowOf(std::string_view text) {
  std::size_t end = std::min(WINDOW_BYTES, text.size());
  while (end < text.size() && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
    --end;
  }
  return text.substr(0, end);
}

}  // namespace

std::vector<std::string> cutPassages(std::string_view text) {
  std::vector<std::string> passages;
  for (;;) {
    const std::size_t first = text.find_first_not_of(BLANKS);
    if (first == std::string_view::npos) return passages;
    text.remove_prefix(first);

    const std::string_view window = windowOf(text);
    const std::size_t full = firstClusters(window, MOST_CLUSTERS).size();
    const std::size_t end = full == text.size() ? full : endOfPiece(window, full);
    const std::string_view piece = text.substr(0, end);
    passages.emplace_back(piece.substr(0, piece.find_last_not_of(BLANKS) + 1));
    text.remove_prefix(end);
  }
}

}  // namespace norvast
