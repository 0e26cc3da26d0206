#include "indexer/indexing/file_analysis.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <variant>

#include "content/file_kind.h"
#include "content/leading_bytes.h"
#include "document/type_group.h"
#include "indexer/analysis/embedded_text.h"
#include "indexer/analysis/entities.h"
#include "indexer/analysis/outline.h"
#include "indexer/analysis/passages.h"
#include "indexer/analysis/summary.h"
#include "indexer/analysis/text_language.h"
#include "platform/regular_file.h"
#include "text/ascii.h"
#include "text/file_name.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

std::vector<float> vectorOf(const std::optional<SentenceEmbedding>& sentence,
                            std::string_view text) {
  const auto vector = sentence ? sentence->vector(text) : std::nullopt;
  return vector.value_or(std::vector<float>());
}

std::vector<std::string_view> leadingTexts(const std::vector<Passage>& passages) {
  std::vector<std::string_view> texts;
  for (std::size_t at = 0; at < std::min(passages.size(), LEADING_PASSAGES); ++at) {
    texts.emplace_back(passages[at].text);
  }
  return texts;
}

std::string_view groupOfReader(const FileKind& kind) {
  struct Reader {
    std::string_view kind;
    std::string_view group;
  };
  static constexpr std::array<Reader, 6> READERS = {{{"spreadsheet", "Spreadsheets"},
                                                     {"presentation", "Presentations"},
                                                     {"html", "Web pages"},
                                                     {"xml", "Data"},
                                                     {"mail", "Mail"},
                                                     {"mailbox", "Mail"}}};
  if (kind.way == FileKind::Way::image) return "Images";
  if (kind.kind == "packed") return "Archives";
  if (kind.way == FileKind::Way::none || kind.kind == "old-office") return {};
  const auto* found = std::find_if(READERS.begin(), READERS.end(), [&kind](const Reader& reader) {
    return reader.kind == kind.kind;
  });
  return found == READERS.end() ? "Documents" : found->group;
}

// Of a file that only its reader could tell the kind of.
std::string_view groupOfMethod(std::string_view method) {
  if (method == "Word 97") return "Documents";
  if (method == "Excel 97") return "Spreadsheets";
  if (method == "PowerPoint 97") return "Presentations";
  return method == "mail" ? "Mail" : "";
}

// By its extension, or where that says nothing by its first bytes.
std::string groupOf(const std::string& path) {
  const std::string extension = fileExtension(path);
  if (const std::string_view group = typeGroup(extension); !group.empty())
    return std::string(group);
  const auto file = openRegularFile(path);
  const std::string bytes = file ? leadingBytes(file->descriptor, TELLING_BYTES) : "";
  if (bytes.empty()) return {};
  const std::string_view group = typeGroupOfContent(bytes);
  return std::string(group.empty() ? groupOfReader(fileKind(extension, bytes)) : group);
}

}  // namespace

FileAnalysis analyseFile(const std::string& path, const ReadingOptions& options,
                         const std::optional<SentenceEmbedding>& sentence) {
  FileAnalysis analysis;
  analysis.group = groupOf(path);
  const std::string_view name = fileName(path);
  auto read = readDocument(path, options);
  if (const auto* failure = std::get_if<ReadFailure>(&read)) {
    analysis.failure = *failure;
  } else {
    Document& document = std::get<Document>(read);
    analysis.method = std::move(document.method);
    if (analysis.group.empty()) analysis.group = groupOfMethod(analysis.method);
    const Outline outline = outlineOf(std::move(document), name);
    const Language& language = languageOf(outline);
    analysis.title = outline.title;
    analysis.summary = summarize(outline, name, language);
    analysis.entities = joined(findEntities(outline, language), "\n");
    for (QuotablePassage& passage : cutPassages(outline)) {
      if (!hasLetterOrNumber(passage.text)) continue;
      std::vector<float> vec =
          vectorOf(sentence, embeddedPassage(name, outline.title, passage.heading, passage.text));
      if (vec.empty()) continue;
      analysis.passages.push_back(
          {std::move(passage.text), std::move(passage.heading), std::move(vec)});
    }
  }
  analysis.vec =
      vectorOf(sentence, embeddedFile(name, analysis.summary, leadingTexts(analysis.passages)));
  return analysis;
}

}  // namespace norvast::indexer
