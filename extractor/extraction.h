// Extraction: what this program is asked for by its arguments, and what it makes of standard input.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "platform/descriptor.h"

namespace norvast {

enum class DocumentKind { pdf, image };

struct ExtractionRequest {
  DocumentKind kind = DocumentKind::pdf;
  std::size_t limitClusters = 0;  // of user-perceived characters
};

// The request in the arguments behind the program's name: "pdf" or "image", then the limit in
// decimal. Nothing when they are anything else.
std::optional<ExtractionRequest> parseRequest(std::span<const char* const> arguments);

// Loads what the kind of document needs, gives up everything else for good, then reads the file:
// its text as UTF-8, at most as long as asked for. Nothing when there is none.
std::optional<std::string> extractText(const ExtractionRequest& request, const Descriptor& file);

}  // namespace norvast
