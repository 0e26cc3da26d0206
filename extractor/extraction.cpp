#include "extractor/extraction.h"

#include <charconv>
#include <string_view>
#include <system_error>
#include <vector>

#include "extractor/lock_in.h"
#include "platform/file_mapping.h"
#include "platform/image_decoding.h"
#include "platform/pdf_text.h"
#include "platform/text_recognition.h"
#include "platform/unicode.h"

namespace norvast {
namespace {

std::optional<std::string> extractPdf(const Descriptor& file, std::size_t limitClusters) {
  preparePdfText();
  const std::vector<std::string> folders(std::begin(PDF_DATA_FOLDERS), std::end(PDF_DATA_FOLDERS));
  if (!lockIn(folders)) return std::nullopt;
  const auto mapping = FileMapping::of(file);
  if (!mapping) return std::nullopt;
  return pdfText(mapping->bytes(), limitClusters);
}

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

}  // namespace

std::optional<ExtractionRequest> parseRequest(std::span<const char* const> arguments) {
  if (arguments.size() != 2) return std::nullopt;
  const std::string_view kind = arguments[0];
  const std::string_view limit = arguments[1];
  ExtractionRequest request;
  if (kind == "image") {
    request.kind = DocumentKind::image;
  } else if (kind != "pdf") {
    return std::nullopt;
  }
  const auto [end, error] =
      std::from_chars(limit.data(), limit.data() + limit.size(), request.limitClusters);
  if (error != std::errc() || end != limit.data() + limit.size()) return std::nullopt;
  return request;
}

std::optional<std::string> extractText(const ExtractionRequest& request, const Descriptor& file) {
  switch (request.kind) {
    case DocumentKind::pdf:
      return extractPdf(file, request.limitClusters);
    case DocumentKind::image:
      return extractImage(file, request.limitClusters);
  }
  return std::nullopt;
}

}  // namespace norvast
