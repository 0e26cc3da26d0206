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

// Returns the `pages`, counted from 1, each as a part followed by the recognised text as one
// paragraph with the page's lines. Stops after the page during which `time` of the processor is
// used up, so that at least one page is tried.
std::variant<Document, ReadFailure> recognizePages(TextRecognizer& recognizer,
                                                   std::string_view bytes,
                                                   std::span<const int> pages,
                                                   std::chrono::milliseconds time);

}  // namespace norvast::extractor
