#include "extractor/image_extraction.h"

#include <memory>
#include <utility>
#include <vector>

#include "extractor/image_decoding.h"
#include "extractor/text_recognition.h"
#include "text/unicode.h"

namespace norvast {
namespace {

// The file is gone before the recognition needs the memory.
std::optional<GrayImage> decodeFile(FileMapping file) { return decodeImage(file.bytes()); }

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += ' ';
    text += line;
  }
  return text;
}

Extracted readImage(TextRecognizer& recognizer, FileMapping file, std::size_t limitClusters) {
  const auto image = decodeFile(std::move(file));
  if (!image) return ReadFailure::decodingFailed;
  std::string text = joined(recognizer.lines(*image));
  text.resize(firstClusters(text, limitClusters).size());
  if (text.empty()) return ReadFailure::noText;
  return text;
}

}  // namespace

Extraction::Read prepareImageExtraction(const char* languages) {
  prepareImageDecoding();
  auto opened = TextRecognizer::open(languages);
  if (!opened) return {};
  const auto recognizer = std::make_shared<TextRecognizer>(std::move(*opened));
  return [recognizer](FileMapping file, std::size_t limitClusters) {
    return readImage(*recognizer, std::move(file), limitClusters);
  };
}

}  // namespace norvast
