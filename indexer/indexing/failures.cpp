#include "indexer/indexing/failures.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "indexer/decisions/path_range.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

struct Wording {
  ReadFailure reason;
  std::string_view word;
  std::string_view text;
};

// Those first that a user can mend.
constexpr std::array WORDINGS = {
    Wording{ReadFailure::noPermission, "noPermission", "no permission to read"},
    Wording{ReadFailure::noProgram, "noProgram", "the program that reads it is missing"},
    Wording{ReadFailure::tooSlow, "tooSlow", "not read in time"},
    Wording{ReadFailure::decodingFailed, "decodingFailed", "damaged, or not what its name says"},
    Wording{ReadFailure::encrypted, "encrypted", "locked with a password"},
    Wording{ReadFailure::unreadableEncoding, "unreadableEncoding", "unreadable encoding"},
    Wording{ReadFailure::tooLarge, "tooLarge", "too large"},
    Wording{ReadFailure::gone, "gone", "gone"},
    Wording{ReadFailure::noText, "noText", "no text in it"},
    Wording{ReadFailure::noReader, "noReader", "no reader for this kind"},
};

const Wording& wordingOf(ReadFailure reason) {
  const auto* row =
      std::find_if(WORDINGS.begin(), WORDINGS.end(),
                   [reason](const Wording& candidate) { return candidate.reason == reason; });
  assert(row != WORDINGS.end());
  return *row;
}

// A word that is not known is tried again.
ReadFailure reasonOf(std::string_view word) {
  const auto* row =
      std::find_if(WORDINGS.begin(), WORDINGS.end(),
                   [word](const Wording& candidate) { return candidate.word == word; });
  return row == WORDINGS.end() ? ReadFailure::tooSlow : row->reason;
}

}  // namespace

std::string_view failureWord(ReadFailure reason) { return wordingOf(reason).word; }

std::string_view failureText(ReadFailure reason) { return wordingOf(reason).text; }

std::size_t failureOrder(ReadFailure reason) {
  return static_cast<std::size_t>(&wordingOf(reason) - WORDINGS.data());
}

bool isPassing(ReadFailure reason) {
  return reason == ReadFailure::noPermission || reason == ReadFailure::noProgram ||
         reason == ReadFailure::tooSlow;
}

bool isTriedAgain(const FailedFile& failed) {
  return isPassing(failed.reason) || failed.reader != READER_VERSION;
}

std::optional<std::vector<FailedFile>> failedFiles(const Connection& index,
                                                   const std::string& path) {
  const PathRange range(path);
  Statement statement(
      index,
      "SELECT path, reason, reader FROM failure WHERE " + PathRange::condition() + " ORDER BY path",
      range.binds());
  std::vector<FailedFile> files;
  while (statement.step()) {
    files.push_back(
        {statement.text(0), reasonOf(statement.text(1)), static_cast<int>(statement.integer(2))});
  }
  if (!statement.isDone()) return std::nullopt;
  return files;
}

}  // namespace norvast::indexer
