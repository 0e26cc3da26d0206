// norvast_extract_image LIMIT: writes to standard output what is recognised in the image file on
// standard input, in the same way as norvast_extract_pdf.
#include <unistd.h>

#include "extractor/image_extraction.h"

int main(int count, char** arguments) {
  if (count != 2) return 1;
  _exit(norvast::runExtraction({norvast::prepareImageExtraction}, arguments[1]));
}
