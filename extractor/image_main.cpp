// norvast_extract_image LANGUAGES LIMIT: writes to standard output what is recognised in the image
// file on standard input, in the same way as norvast_extract_pdf. LANGUAGES are names of the
// recogniser's models, joined by "+".
#include <unistd.h>

#include "extractor/image_extraction.h"

int main(int count, char** arguments) {
  if (count != 3) return 1;
  const auto prepare = [arguments] { return norvast::prepareImageExtraction(arguments[1]); };
  _exit(norvast::runExtraction({prepare}, arguments[2]));
}
