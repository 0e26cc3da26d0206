#include "extractor/picture/image_extraction.h"

#include <memory>
#include <utility>
#include <vector>

#include "document/document_builder.h"
#include "extractor/picture/heif_decoding.h"
#include "extractor/picture/image_decoding.h"
#include "extractor/picture/photo_facts.h"
#include "extractor/picture/photo_place.h"
#include "extractor/picture/text_recognition.h"
#include "text/unicode.h"

namespace norvast::extractor {
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

std::string factsOf(const FileMapping& file) {
  const std::string_view bytes = file.bytes();
  const std::string place = photoPlace(bytes);
  return isHeif(bytes) ? photoSentence(heifExif(bytes), place) : photoSentence(bytes, place);
}

Extracted readPhoto(TextRecognizer& recognizer, FileMapping file, std::size_t limitCharacters) {
  DocumentBuilder document("Vision OCR", limitCharacters);
  document.add(DocumentBlock::Kind::paragraph, factsOf(file));
  const auto image = decodeFile(std::move(file));
  if (!image) return ReadFailure::decodingFailed;
  document.add(DocumentBlock::Kind::paragraph, joined(recognizer.lines(*image)));
  return asExtracted(document.take());
}

Extracted readImage(TextRecognizer& recognizer, FileMapping file, std::size_t limitClusters) {
  const auto image = decodeFile(std::move(file));
  if (!image) return ReadFailure::decodingFailed;
  std::string text = joined(recognizer.lines(*image));
  text.resize(firstClusters(text, limitClusters).size());
  if (text.empty()) return ReadFailure::noText;
  return text;
}

template <typename Read>
Extraction::Read prepareReading(const char* languages, Read read) {
  prepareImageDecoding();
  auto opened = TextRecognizer::open(languages);
  if (!opened) return {};
  const auto recognizer = std::make_shared<TextRecognizer>(std::move(*opened));
  return [recognizer, read](FileMapping file, std::size_t limit) {
    return read(*recognizer, std::move(file), limit);
  };
}

}  // namespace

Extraction::Read prepareImageExtraction(const char* languages) {
  return prepareReading(languages, readImage);
}

Extraction::Read preparePhotoExtraction(const char* languages) {
  return prepareReading(languages, readPhoto);
}

}  // namespace norvast::extractor
