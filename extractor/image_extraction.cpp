#include "extractor/image_extraction.h"

#include <vector>

#include "extractor/image_decoding.h"
#include "extractor/lock_in.h"
#include "extractor/text_recognition.h"
#include "platform/file_mapping.h"
#include "text/unicode.h"

namespace norvast {
namespace {

std::optional<GrayImage> decodeFile(const Descriptor& file) {
  const auto mapping = FileMapping::of(file);  // gone before the recognition needs the memory
  if (!mapping) return std::nullopt;
  return decodeImage(mapping->bytes());
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += ' ';
    text += line;
  }
  return text;
}

}  // namespace

std::optional<std::string> extractImage(const Descriptor& file, std::size_t limitClusters) {
  prepareImageDecoding();
  auto recognizer = TextRecognizer::open();
  if (!recognizer || !lockIn({})) return std::nullopt;
  const auto image = decodeFile(file);
  if (!image) return std::nullopt;
  std::string text = joined(recognizer->lines(*image));
  text.resize(firstClusters(text, limitClusters).size());
  if (text.empty()) return std::nullopt;
  return text;
}

}  // namespace norvast
