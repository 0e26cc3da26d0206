#include "extractor/pdf/pdf_text.h"

#include <poppler-document.h>
#include <poppler-global.h>
#include <poppler-page.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "text/unicode.h"

namespace norvast::extractor {
namespace {

constexpr std::string_view PAGE_SEPARATOR = "\n\n";

// Of the pages that a document keeps as parts; one can announce two thousand million of them.
constexpr int MOST_PAGES = 10'000;

// A catalogue and no pages (ISO 32000-1, section 7.7). There is no table of cross-references:
// Poppler finds the objects without one.
constexpr std::string_view SMALLEST_DOCUMENT =
    "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
    "2 0 obj<</Type/Pages/Kids[]/Count 0>>endobj\ntrailer<</Root 1 0 R>>\n";

using Pdf = std::unique_ptr<poppler::document>;

void dropMessage(const std::string& /*message*/, void* /*closure*/) {}

Pdf load(std::string_view bytes) {
  poppler::set_debug_error_function(dropMessage, nullptr);
  return Pdf(poppler::document::load_from_raw_data(bytes.data(), static_cast<int>(bytes.size())));
}

std::string utf8(const poppler::ustring& text) {
  const poppler::byte_array bytes = text.to_utf8();
  return {bytes.begin(), bytes.end()};
}

std::string pageText(const poppler::document& document, int index) {
  const std::unique_ptr<poppler::page> page(document.create_page(index));
  if (!page) return {};
  std::string text = utf8(page->text(poppler::rectf(), poppler::page::non_raw_non_physical_layout));
  text.resize(text.find_last_not_of(" \n\r\f") + 1);  // npos + 1 is 0: nothing else was there
  return text;
}

std::string leadingPages(const poppler::document& document, std::size_t limitClusters) {
  std::string text;
  // A separator never joins the characters beside it, so the counts of the pages add up.
  std::size_t clusters = 0;
  for (int index = 0; index < document.pages() && clusters < limitClusters; ++index) {
    std::string page = pageText(document, index);
    if (page.empty()) continue;
    if (!text.empty()) page.insert(0, PAGE_SEPARATOR);
    clusters += countClusters(page);
    text += page;
  }
  return text;
}

// Titles come with line breaks where an author's program put them.
std::string oneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char character) { return character >= 0 && character < ' '; },
      ' ');
  text.resize(text.find_last_not_of(' ') + 1);
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

Document documentOf(const poppler::document& pdf, std::size_t limitClusters) {
  Document document;
  document.method = "PDFKit";
  document.title = oneLine(utf8(pdf.get_title()));
  document.author = oneLine(utf8(pdf.get_author()));
  std::size_t left = limitClusters;
  for (int index = 0; index < std::min(pdf.pages(), MOST_PAGES) && left > 0; ++index) {
    std::string text = pageText(pdf, index);
    text.resize(firstClusters(text, left).size());
    left -= countClusters(text);
    document.blocks.push_back({DocumentBlock::Kind::part, pageName(index + 1)});
    if (text.empty()) continue;
    document.blocks.push_back({DocumentBlock::Kind::paragraph, std::move(text)});
  }
  return document;
}

bool isEmpty(const std::string& text) { return text.empty(); }
bool isEmpty(const Document& document) { return document.blocks.empty(); }

// What `read` gives of the opened document, unless it gives nothing.
template <typename Result, typename Read>
std::variant<Result, ReadFailure> readingOf(std::string_view bytes, Read read) try {
  if (bytes.size() > std::size_t{std::numeric_limits<int>::max()}) return ReadFailure::tooLarge;
  const Pdf document = load(bytes);
  if (!document) return ReadFailure::decodingFailed;
  if (document->is_locked()) return ReadFailure::encrypted;
  Result result = read(*document);
  if (isEmpty(result)) return ReadFailure::noText;
  return result;
} catch (const std::bad_alloc&) {
  return ReadFailure::tooLarge;
} catch (const std::exception&) {
  return ReadFailure::decodingFailed;
}

}  // namespace

void preparePdfText() {
  // Texts are converted through iconv, whose converters are loaded at their first use and stay.
  // What follows them, without a message, where they cannot be loaded is an empty text.
  (void)utf8(poppler::ustring::from_utf8("."));
  // The names of characters are read with the first document and kept while there is one.
  static const Pdf FIRST = load(SMALLEST_DOCUMENT);
  tzset();  // else done at the first date
}

std::variant<std::string, ReadFailure> pdfText(std::string_view bytes, std::size_t limitClusters) {
  return readingOf<std::string>(bytes, [limitClusters](const poppler::document& document) {
    std::string text = leadingPages(document, limitClusters);
    text.resize(firstClusters(text, limitClusters).size());
    return text;
  });
}

std::variant<Document, ReadFailure> pdfDocument(std::string_view bytes, std::size_t limitClusters) {
  return readingOf<Document>(bytes, [limitClusters](const poppler::document& document) {
    return documentOf(document, limitClusters);
  });
}

}  // namespace norvast::extractor
