// Scanned pages: the text of pages that a PDF document holds as pictures.
#pragma once

#include <chrono>
#include <span>
#include <string_view>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"
#include "extractor/picture/text_recognition.h"

namespace norvast::extractor {

// Those of the `pages`, counted from 1, that were reached before `time` of the processor was used
// up, each as a part with what is recognised in it as one paragraph, a line for a line. At least
// one page is tried.
std::variant<Document, ReadFailure> recognizePages(TextRecognizer& recognizer,
                                                   std::string_view bytes,
                                                   std::span<const int> pages,
                                                   std::chrono::milliseconds time);

}  // namespace norvast::extractor
