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
  // A recogniser with its models loaded (60 to 90 ms each): it opens no file afterwards.
  // `languages` are their names, as "eng", joined by "+"; the first counts most, and those that are
  // not installed are passed over. Nothing when none is.
  static std::optional<TextRecognizer> open(const char* languages = "eng");

  ~TextRecognizer();
  TextRecognizer(TextRecognizer&&) noexcept;
  TextRecognizer& operator=(TextRecognizer&&) noexcept;

  // The lines that it is sure enough of, in its own order, each as UTF-8 without white space at
  // either end, none of them empty. Empty when the image holds no text or is too large for it.
  std::vector<std::string> lines(const GrayImage& image);

 private:
  explicit TextRecognizer(std::unique_ptr<tesseract::TessBaseAPI> engine);

  std::unique_ptr<tesseract::TessBaseAPI> engine_;
};

}  // namespace norvast::extractor
