#include "content/scanned_document.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "content/isolated_extraction.h"

namespace norvast {
namespace {

// Bounds of the recognition in one document. A page of dense type takes 2 to 5 s; a program has
// 25 s of the processor's time in all, and may be in the middle of a page when its part is over.
constexpr std::size_t MOST_PAGES = 20;
constexpr int MOST_STARTS = 5;
constexpr const char* SECONDS_A_START = "15";

using Kind = DocumentBlock::Kind;

bool isPart(const DocumentBlock& block) { return block.kind == Kind::part; }

bool isEmptyPart(const std::vector<DocumentBlock>& blocks, std::size_t index) {
  return isPart(blocks[index]) && (index + 1 == blocks.size() || isPart(blocks[index + 1]));
}

// The first of them, in a document whose parts are its pages from 1 on.
std::vector<int> pagesWithoutText(const Document& document) {
  std::vector<int> pages;
  int number = 0;
  for (std::size_t index = 0; index < document.blocks.size(); ++index) {
    if (isPart(document.blocks[index])) ++number;
    if (isEmptyPart(document.blocks, index)) pages.push_back(number);
    if (pages.size() == MOST_PAGES) break;
  }
  return pages;
}

// What one start of the program makes of the pages, at least the first of them.
std::optional<Document> recognized(const RegularFile& file, const std::vector<int>& pages,
                                   const std::string& limit, const std::string& languages) {
  std::vector<std::string> arguments = {languages, SECONDS_A_START, limit};
  for (const int page : pages) arguments.push_back(std::to_string(page));
  auto read = isolatedDocument({"norvast_extract_scan", std::move(arguments)}, file);
  if (std::holds_alternative<ReadFailure>(read)) return std::nullopt;
  return std::move(std::get<Document>(read));
}

// Puts each paragraph of `pages` behind the part of the document that has the same name.
void insertPages(Document& document, const Document& pages) {
  for (std::size_t index = 1; index < pages.blocks.size(); ++index) {
    const auto& block = pages.blocks[index];
    if (isPart(block) || !isPart(pages.blocks[index - 1])) continue;
    const auto part =
        std::find(document.blocks.begin(), document.blocks.end(), pages.blocks[index - 1]);
    if (part != document.blocks.end()) document.blocks.insert(part + 1, block);
  }
}

void recognizePages(Document& document, const RegularFile& file, const std::string& limit,
                    const std::string& languages) {
  std::vector<int> left = pagesWithoutText(document);
  for (int start = 0; start < MOST_STARTS && !left.empty(); ++start) {
    const auto read = recognized(file, left, limit, languages);
    const auto tried =
        read ? std::count_if(read->blocks.begin(), read->blocks.end(), isPart) : std::ptrdiff_t{1};
    if (read) insertPages(document, *read);
    left.erase(left.begin(), left.begin() + std::min(tried, std::ssize(left)));
  }
}

// A page without text is no part of what the document says, and a single page needs no name.
void dropNames(Document& document) {
  const auto& blocks = document.blocks;
  const bool isSingle = std::count_if(blocks.begin(), blocks.end(), isPart) == 1;
  std::vector<DocumentBlock> kept;
  for (std::size_t index = 0; index < blocks.size(); ++index) {
    const bool isDropped = isPart(blocks[index]) && (isSingle || isEmptyPart(blocks, index));
    if (!isDropped) kept.push_back(blocks[index]);
  }
  document.blocks = std::move(kept);
}

}  // namespace

std::variant<Document, ReadFailure> pdfWithScannedPages(const RegularFile& file,
                                                        std::size_t limitClusters,
                                                        const std::string& languages) {
  const std::string limit = std::to_string(limitClusters);
  auto read = isolatedDocument({"norvast_extract_pdf", {"document", limit}}, file);
  auto* document = std::get_if<Document>(&read);
  if (document == nullptr) return read;
  const bool hadText = !std::all_of(document->blocks.begin(), document->blocks.end(), isPart);
  recognizePages(*document, file, limit, languages);
  dropNames(*document);
  if (document->blocks.empty()) return ReadFailure::noText;
  if (!hadText) document->method = "Vision OCR";
  return read;
}

}  // namespace norvast
