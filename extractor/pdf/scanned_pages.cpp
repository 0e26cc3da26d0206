#include "extractor/pdf/scanned_pages.h"

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <exception>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <utility>

namespace norvast::extractor {
namespace {

// What the recogniser is made for, and what scanners store; less for pages larger than A3.
constexpr double DOTS_PER_INCH = 300;
constexpr double POINTS_PER_INCH = 72;
constexpr double MOST_PIXELS = 18'000'000;

double resolutionFor(const poppler::rectf& page) {
  const double squareInches = page.width() / POINTS_PER_INCH * (page.height() / POINTS_PER_INCH);
  if (squareInches <= 0) return 0;
  return std::min(DOTS_PER_INCH, std::sqrt(MOST_PIXELS / squareInches));
}

GrayImage drawnPage(const poppler::document& document, int number) {
  const std::unique_ptr<poppler::page> page(
      number >= 1 && number <= document.pages() ? document.create_page(number - 1) : nullptr);
  if (!page) return {};
  const double resolution = resolutionFor(page->page_rect());
  if (resolution < 1) return {};
  poppler::page_renderer renderer;
  renderer.set_image_format(poppler::image::format_gray8);
  renderer.set_render_hint(poppler::page_renderer::antialiasing);
  const poppler::image drawn = renderer.render_page(page.get(), resolution, resolution);
  if (!drawn.is_valid()) return {};
  return grayImage(drawn.const_data(), drawn.width(), drawn.height(), drawn.bytes_per_row());
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(text.empty() ? "" : "\n").append(line);
  return text;
}

std::chrono::milliseconds processorTime() {
  return std::chrono::milliseconds(std::clock() / (CLOCKS_PER_SEC / 1000));
}

}  // namespace

std::variant<Document, ReadFailure> recognizePages(TextRecognizer& recognizer,
                                                   std::string_view bytes,
                                                   std::span<const int> pages,
                                                   std::chrono::milliseconds time) try {
  if (bytes.size() > std::size_t{std::numeric_limits<int>::max()}) return ReadFailure::tooLarge;
  const auto end = processorTime() + time;
  const std::unique_ptr<poppler::document> pdf(
      poppler::document::load_from_raw_data(bytes.data(), static_cast<int>(bytes.size())));
  if (!pdf || pdf->is_locked()) return ReadFailure::decodingFailed;
  Document document;
  for (const int number : pages) {
    document.blocks.push_back({DocumentBlock::Kind::part, pageName(number)});
    const GrayImage page = drawnPage(*pdf, number);
    std::string text = page ? joined(recognizer.lines(page)) : std::string();
    if (!text.empty()) document.blocks.push_back({DocumentBlock::Kind::paragraph, std::move(text)});
    if (processorTime() >= end) break;
  }
  return document;
} catch (const std::bad_alloc&) {
  return ReadFailure::tooLarge;
} catch (const std::exception&) {
  return ReadFailure::decodingFailed;
}

}  // namespace norvast::extractor
