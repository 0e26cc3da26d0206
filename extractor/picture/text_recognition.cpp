#include "extractor/picture/text_recognition.h"

#include <leptonica/allheaders.h>
#include <tesseract/baseapi.h>
#include <tesseract/resultiterator.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "text/ascii.h"

namespace norvast::extractor {
namespace {

// Lines up to this height, which are those of type of up to 16 pixels as on a screen, are read at
// twice their size. Measured on 52 pictures in four typefaces, characters read wrong by pixels of
// type, as they are and doubled: 8: 45 and 5.3 %, 9: 14 and 1.4 %, 10: 6.4 and 0.4 %, 12: 0.8 and
// 0.1 %, 16: 0.2 and 0.1 %, from 20 on none either way. Three and four times were worse than two.
constexpr int SMALL_LINE_PIXELS = 16;

// A whole screen of 3840 x 2160; larger ones would cost more memory than their text is worth.
constexpr std::int64_t MOST_PIXELS_DOUBLED = 9'000'000;

// In percent. What the recogniser made of textures in 32 wallpapers stayed below 41, its worst
// real line, in type of 8 pixels, was above.
constexpr float LEAST_CONFIDENCE = 40;

// Light text on a dark ground is found as well, but only through a second try of each line:
// inverted first, such pictures gave the same text in about half the time.
GrayImage darkOnLight(const GrayImage& image) {
  constexpr l_int32 STEP = 4;  // a sixteenth of the pixels is enough
  l_float32 average = 0;
  if (pixGetAverageMasked(image.get(), nullptr, 0, 0, STEP, L_MEAN_ABSVAL, &average) != 0) {
    return {};
  }
  return GrayImage(average < 128 ? pixInvert(nullptr, image.get()) : pixClone(image.get()));
}

// Median height in pixels of the lines of text in the engine's image, from the foot of a "p" to
// the top of a "P". 0 when it has none. The layout found for it serves the recognition too.
int typicalLineHeight(tesseract::TessBaseAPI& engine) {
  std::vector<int> heights;
  const std::unique_ptr<tesseract::PageIterator> found(engine.AnalyseLayout());
  if (!found || found->Empty(tesseract::RIL_TEXTLINE)) return 0;
  do {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    if (tesseract::PTIsTextType(found->BlockType()) &&
        found->BoundingBox(tesseract::RIL_TEXTLINE, &left, &top, &right, &bottom)) {
      heights.push_back(bottom - top);
    }
  } while (found->Next(tesseract::RIL_TEXTLINE));
  if (heights.empty()) return 0;
  const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
  std::nth_element(heights.begin(), middle, heights.end());
  return *middle;
}

GrayImage doubled(const GrayImage& image) {
  const std::int64_t width = pixGetWidth(image.get());
  if (width * pixGetHeight(image.get()) > MOST_PIXELS_DOUBLED) return {};
  return GrayImage(pixScale(image.get(), 2, 2));
}

std::vector<std::string> recognizedLines(tesseract::TessBaseAPI& engine) {
  std::vector<std::string> lines;
  const std::unique_ptr<tesseract::ResultIterator> found(engine.GetIterator());
  if (!found || found->Empty(tesseract::RIL_TEXTLINE)) return lines;
  do {
    if (found->Confidence(tesseract::RIL_TEXTLINE) < LEAST_CONFIDENCE) continue;
    const std::unique_ptr<const char[]> text(found->GetUTF8Text(tesseract::RIL_TEXTLINE));
    std::string line(text ? trimmed(text.get()) : std::string_view());
    if (!line.empty()) lines.push_back(std::move(line));
  } while (found->Next(tesseract::RIL_TEXTLINE));
  return lines;
}

}  // namespace

TextRecognizer::TextRecognizer(std::unique_ptr<tesseract::TessBaseAPI> engine)
    : engine_(std::move(engine)) {}
TextRecognizer::~TextRecognizer() = default;
TextRecognizer::TextRecognizer(TextRecognizer&&) noexcept = default;
TextRecognizer& TextRecognizer::operator=(TextRecognizer&&) noexcept = default;

std::optional<TextRecognizer> TextRecognizer::open(const char* languages) {
  auto engine = std::make_unique<tesseract::TessBaseAPI>();
  if (engine->Init(nullptr, languages, tesseract::OEM_LSTM_ONLY) != 0) return std::nullopt;
  engine->SetPageSegMode(tesseract::PSM_AUTO);
  return TextRecognizer(std::move(engine));
}

std::vector<std::string> TextRecognizer::lines(const GrayImage& image) {
  const GrayImage page = darkOnLight(image);
  if (!page) return {};
  engine_->SetImage(page.get());
  const int height = typicalLineHeight(*engine_);
  if (height == 0) return {};
  const GrayImage larger = height <= SMALL_LINE_PIXELS ? doubled(page) : GrayImage();
  if (larger) engine_->SetImage(larger.get());
  if (engine_->Recognize(nullptr) != 0) return {};
  return recognizedLines(*engine_);
}

}  // namespace norvast::extractor
