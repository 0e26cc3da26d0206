#include "indexer/analysis/summary_lead.h"

#include <algorithm>
#include <vector>

#include "document/type_group.h"
#include "indexer/analysis/lines.h"
#include "indexer/analysis/prose_text.h"
#include "language/languages.h"
#include "text/ascii.h"
#include "text/file_name.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

// How far from the beginning a heading still stands for the whole text.
constexpr std::size_t LEADING_BYTES = 600;

// "report-final.docx", but not "Version 2.1".
bool isFileName(std::string_view title) {
  const std::string extension = fileExtension(title);
  return title.find(' ') == std::string_view::npos && !extension.empty() &&
         !typeGroup(extension).empty();
}

bool saysSomething(std::string_view title) {
  // A title that is one of them, or begins with one before a blank, says nothing of its own text.
  static const std::vector<std::string_view> EMPTY_TITLES = phrasesOfAll(&Language::emptyTitles);
  const std::string lower = lowerCase(title);
  const auto isEmptyTitle = [&lower](std::string_view empty) {
    if (!lower.starts_with(empty)) return false;
    const std::string_view rest = std::string_view(lower).substr(empty.size());
    return rest.find_first_not_of(" 0123456789.-:") == std::string_view::npos ||
           (rest.front() == ' ' && rest.find(" - ") < 12);
  };
  return countClusters(title) > 2 && !isFileName(title) &&
         std::none_of(EMPTY_TITLES.begin(), EMPTY_TITLES.end(), isEmptyTitle);
}

std::string shortened(std::string title) {
  const std::string_view leading = firstClusters(title, LONGEST_LEAD_CLUSTERS);
  if (leading.size() < title.size()) {
    const std::size_t blank = leading.rfind(' ');
    title.resize(blank == std::string_view::npos ? leading.size() : blank);
    title += "…";
  }
  while (!title.empty() && (title.back() == ':' || isBlank(title.back()))) title.pop_back();
  return title;
}

std::string firstHeading(const Outline& outline) {
  for (const Stretch& stretch : outline.stretches) {
    if (stretch.start > LEADING_BYTES) break;
    if (stretch.kind != Stretch::Kind::heading && stretch.kind != Stretch::Kind::part) continue;
    std::string heading = proseText(nameIn(outline.textOf(stretch)));
    if (saysSomething(heading)) return heading;
  }
  return {};
}

// "Re: AW: Garden pump" without what mail programs put before it.
std::string_view subjectOf(std::string_view title) {
  static const std::vector<std::string_view> MARKS = wordsOfAll(&Language::replyMarks);
  for (bool isCut = true; isCut;) {
    isCut = false;
    for (const std::string_view prefix : MARKS) {
      if (asciiLowerCase(title.substr(0, prefix.size())) != prefix) continue;
      title = trimmed(title.substr(prefix.size()));
      isCut = true;
    }
  }
  return title;
}

// What the mails of a mailbox are about, each subject once, until they fill a lead.
std::string subjects(const Outline& outline) {
  std::vector<std::string> known;
  std::string list;
  for (const Stretch& stretch : outline.stretches) {
    if (stretch.kind != Stretch::Kind::part) continue;
    const std::string subject(subjectOf(onOneLine(outline.textOf(stretch))));
    if (!saysSomething(subject) || std::find(known.begin(), known.end(), subject) != known.end()) {
      continue;
    }
    if (!list.empty()) list += "; ";
    list += subject;
    if (countClusters(list) > LONGEST_LEAD_CLUSTERS) break;
    known.push_back(subject);
  }
  return list;
}

// The name of a sender, without the address behind it.
std::string_view senderName(std::string_view author) {
  std::string_view name = trimmed(author.substr(0, author.find('<')));
  while (name.size() > 1 && (name.front() == '"' || name.front() == '\'')) name.remove_prefix(1);
  while (name.size() > 1 && (name.back() == '"' || name.back() == '\'')) name.remove_suffix(1);
  return name.empty() ? author : name;
}

}  // namespace

std::string summaryLead(const Outline& outline, std::string_view name) {
  const bool isMail = typeGroup(fileExtension(name)) == "Mail";
  std::string title = onOneLine(outline.title);
  if (isMail) title = title.empty() ? subjects(outline) : std::string(subjectOf(title));
  if (!saysSomething(title)) title = firstHeading(outline);
  title = shortened(std::move(title));
  if (!isMail || outline.author.empty()) return title;
  const std::string sender = shortened(onOneLine(senderName(outline.author)));
  return title.empty() ? sender : title + " (" + sender + ")";
}

}  // namespace norvast::indexer
