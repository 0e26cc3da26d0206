#include "extractor/pdf_text.h"

#include <poppler-document.h>
#include <poppler-global.h>
#include <poppler-page.h>

#include <ctime>
#include <exception>
#include <limits>
#include <memory>
#include <new>

#include "text/unicode.h"

namespace norvast {
namespace {

constexpr std::string_view PAGE_SEPARATOR = "\n\n";

constexpr std::string_view SMALLEST_DOCUMENT =
    "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
    "2 0 obj<</Type/Pages/Kids[]/Count 0>>endobj\ntrailer<</Root 1 0 R>>\n";

using Document = std::unique_ptr<poppler::document>;

void dropMessage(const std::string& /*message*/, void* /*closure*/) {}

Document load(std::string_view bytes) {
  poppler::set_debug_error_function(dropMessage, nullptr);
  return Document(
      poppler::document::load_from_raw_data(bytes.data(), static_cast<int>(bytes.size())));
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

}  // namespace

void preparePdfText() {
  // Texts are converted through iconv, whose converters are loaded at their first use and stay.
  // What follows them, without a message, where they cannot be loaded is an empty text.
  (void)utf8(poppler::ustring::from_utf8("."));
  // The names of characters are read with the first document and kept while there is one.
  static const Document first = load(SMALLEST_DOCUMENT);
  tzset();  // else done at the first date
}

std::variant<std::string, ReadFailure> pdfText(std::string_view bytes,
                                               std::size_t limitClusters) try {
  if (bytes.size() > std::size_t{std::numeric_limits<int>::max()}) return ReadFailure::tooLarge;
  const Document document = load(bytes);
  if (!document) return ReadFailure::decodingFailed;
  if (document->is_locked()) return ReadFailure::encrypted;

  std::string text = leadingPages(*document, limitClusters);
  if (text.empty()) return ReadFailure::noText;
  text.resize(firstClusters(text, limitClusters).size());
  return text;
} catch (const std::bad_alloc&) {
  return ReadFailure::tooLarge;
} catch (const std::exception&) {
  return ReadFailure::decodingFailed;
}

}  // namespace norvast
