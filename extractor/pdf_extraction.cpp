#include "extractor/pdf_extraction.h"

#include <iterator>
#include <vector>

#include "extractor/lock_in.h"
#include "extractor/pdf_text.h"
#include "platform/file_mapping.h"

namespace norvast {

std::optional<std::string> extractPdf(const Descriptor& file, std::size_t limitClusters) {
  preparePdfText();
  const std::vector<std::string> folders(std::begin(PDF_DATA_FOLDERS), std::end(PDF_DATA_FOLDERS));
  if (!lockIn(folders)) return std::nullopt;
  const auto mapping = FileMapping::of(file);
  if (!mapping) return std::nullopt;
  return pdfText(mapping->bytes(), limitClusters);
}

}  // namespace norvast
