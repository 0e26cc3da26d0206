#include "indexer/analysis/passages.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <unordered_set>

#include "indexer/analysis/value_table.h"
#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast::indexer {
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

// A line of text that names what is below it.
struct Heading {
  std::size_t start = 0;
  bool isPart = false;
  std::string_view text;
};

std::vector<Heading> headingsOf(const Outline& outline) {
  std::vector<Heading> headings;
  for (const Stretch& stretch : outline.stretches) {
    const bool isPart = stretch.kind == Stretch::Kind::part;
    if (isPart || stretch.kind == Stretch::Kind::heading) {
      headings.push_back({stretch.start, isPart, nameIn(outline.textOf(stretch))});
    }
  }
  return headings;
}

// Cuts one text into its pieces, in order.
class Cutter {
 public:
  explicit Cutter(const Outline& outline) : text_(outline.text), headings_(headingsOf(outline)) {}

  std::vector<QuotablePassage> cut() {
    while (skipBlanks()) {
      enterHeadings();
      const std::size_t end = endOfNext();
      std::string_view piece = text_.substr(start_, end - start_);
      piece = piece.substr(0, piece.find_last_not_of(BLANKS) + 1);
      if (isKept(piece)) passages_.push_back({std::string(piece), heading()});
      start_ = end;
    }
    return std::move(passages_);
  }

 private:
  bool skipBlanks() {
    start_ = text_.find_first_not_of(BLANKS, start_);
    return start_ != std::string_view::npos;
  }

  // Passes the headings above or at the beginning of the next piece.
  void enterHeadings() {
    for (; next_ < headings_.size() && headings_[next_].start <= start_; ++next_) {
      const Heading& entered = headings_[next_];
      if (entered.isPart) {
        part_ = entered.text;
        valuesInRun_ = 0;
      }
      heading_ = entered.isPart ? std::string_view() : entered.text;
    }
  }

  std::size_t endOfNext() const {
    std::string_view window = firstBytes(text_.substr(start_), WINDOW_BYTES);
    const std::size_t part = firstPartBefore(start_ + window.size());
    window = window.substr(0, part - start_);
    const std::size_t full = firstClusters(window, MOST_CLUSTERS).size();
    if (start_ + full == part || start_ + full == text_.size()) return start_ + full;
    const std::size_t heading = lastHeadingWithin(start_ + full / 2, start_ + full);
    return heading > 0 ? heading : start_ + endOfPiece(window, full);
  }

  // Where the next part begins, or `end` when that is not before it.
  std::size_t firstPartBefore(std::size_t end) const {
    for (std::size_t at = next_; at < headings_.size() && headings_[at].start < end; ++at) {
      if (headings_[at].isPart) return headings_[at].start;
    }
    return end;
  }

  // Where the last heading between two places begins; 0 when there is none.
  std::size_t lastHeadingWithin(std::size_t first, std::size_t last) const {
    std::size_t found = 0;
    for (std::size_t at = next_; at < headings_.size() && headings_[at].start <= last; ++at) {
      if (headings_[at].start >= first) found = headings_[at].start;
    }
    return found;
  }

  bool isKept(std::string_view piece) {
    if (!isTableOfValues(piece)) {
      valuesInRun_ = 0;
    } else if (++valuesInRun_ > MOST_VALUE_PIECES_A_RUN || ++values_ > MOST_VALUE_PIECES_A_FILE) {
      return false;
    }
    return kept_.insert(piece).second;
  }

  std::string heading() const {
    std::string heading(part_);
    if (!part_.empty() && !heading_.empty()) heading += ": ";
    return heading.append(heading_);
  }

  std::string_view text_;
  std::vector<Heading> headings_;
  std::size_t start_ = 0;  // of what is not cut yet
  std::size_t next_ = 0;   // the first heading that is not passed
  std::string_view part_;
  std::string_view heading_;
  std::size_t valuesInRun_ = 0;
  std::size_t values_ = 0;
  std::unordered_set<std::string_view> kept_;
  std::vector<QuotablePassage> passages_;
};

}  // namespace

std::vector<QuotablePassage> cutPassages(const Outline& outline) { return Cutter(outline).cut(); }

}  // namespace norvast::indexer
