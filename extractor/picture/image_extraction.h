// Image extraction: the text in the first picture of an image file.
#pragma once

#include "extractor/program/extraction_program.h"

namespace norvast::extractor {

// Loads the recogniser's models of these names, as in TextRecognizer::open, and what decoding
// needs. The reading gives the recognised lines joined by single blanks.
Extraction::Read prepareImageExtraction(const char* languages);

// The same, but the reading gives a document: what the picture's EXIF fields say, and these lines.
Extraction::Read preparePhotoExtraction(const char* languages);

}  // namespace norvast::extractor
