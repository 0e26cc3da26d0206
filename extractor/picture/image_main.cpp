// norvast_extract_image LANGUAGES LIMIT: writes to standard output what is recognised in the image
// file on standard input, in the same way as norvast_extract_pdf. LANGUAGES are names of the
// recogniser's models, joined by "+". With "photo" before LANGUAGES it writes what writeDocument
// makes of that and of the picture's EXIF fields.
#include <unistd.h>

#include <string_view>

#include "extractor/picture/image_extraction.h"

int main(int count, char** arguments) {
  using namespace norvast::extractor;
  const bool isPhoto = count == 4 && std::string_view(arguments[1]) == "photo";
  if (count != 3 && !isPhoto) return 1;
  const char* languages = arguments[count - 2];
  const auto prepare = [isPhoto, languages] {
    return isPhoto ? preparePhotoExtraction(languages) : prepareImageExtraction(languages);
  };
  _exit(runExtraction({prepare}, arguments[count - 1]));
}
