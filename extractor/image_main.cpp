// norvast_extract_image LIMIT: what norvast_extract becomes for an image.
#include <unistd.h>

#include "extractor/extraction_program.h"
#include "extractor/image_extraction.h"

int main(int count, char** arguments) {
  _exit(count == 2 ? norvast::runExtraction(norvast::extractImage, arguments[1]) : 1);
}
