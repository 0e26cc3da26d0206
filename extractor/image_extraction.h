// Image extraction: the text in the first picture of an image file.
#pragma once

#include "extractor/extraction_program.h"

namespace norvast {

// Loads the recogniser's models of these names, as in TextRecognizer::open, and what decoding
// needs. The reading gives the recognised lines joined by single blanks.
Extraction::Read prepareImageExtraction(const char* languages);

}  // namespace norvast
