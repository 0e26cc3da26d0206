// Text recognition: the lines of text in a picture, at the recogniser's most careful.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "extractor/picture/gray_image.h"

namespace tesseract {
class TessBaseAPI;
}

namespace norvast::extractor {

class TextRecognizer {
 public:
  // Returns a recogniser with its models loaded, which takes 60 to 90 ms each; it opens no file
  // afterwards. `languages` are the names of models ("eng"), joined by "+". The first counts most.
  // Models that are not installed are passed over; returns nothing if none is installed.
  static std::optional<TextRecognizer> open(const char* languages = "eng");

  ~TextRecognizer();
  TextRecognizer(TextRecognizer&&) noexcept;
  TextRecognizer& operator=(TextRecognizer&&) noexcept;

  // Returns the lines that the recogniser is sure enough of, in its own order. Each is UTF-8, not
  // empty, and without white space at either end. Returns no lines if the image holds no text or is
  // too large.
  std::vector<std::string> lines(const GrayImage& image);

 private:
  explicit TextRecognizer(std::unique_ptr<tesseract::TessBaseAPI> engine);

  std::unique_ptr<tesseract::TessBaseAPI> engine_;
};

}  // namespace norvast::extractor
