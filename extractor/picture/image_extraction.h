// Image extraction: the text in the first picture of an image file.
#pragma once

#include "extractor/program/extraction_program.h"

namespace norvast::extractor {

// Loads the recogniser's models of these names, as TextRecognizer::open does, and what decoding
// needs. The function that it returns gives the recognised lines, joined by single blanks.
Extraction::Read prepareImageExtraction(const char* languages);

// Does the same, but the function that it returns gives a document: a sentence of what the
// picture's EXIF fields say, and the recognised lines.
Extraction::Read preparePhotoExtraction(const char* languages);

}  // namespace norvast::extractor
