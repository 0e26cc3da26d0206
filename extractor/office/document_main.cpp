// norvast_extract_document KIND LIMIT: writes to standard output what writeDocument makes of the
// file on standard input, an office file, page or the like, with at most LIMIT characters of text,
// in the same way as norvast_extract_pdf. KIND is one of office_kinds.cpp; it decides how the
// file is read, whatever it holds.
#include <unistd.h>

#include "extractor/office/office_kinds.h"

int main(int count, char** arguments) {
  if (count != 3) return 1;
  _exit(norvast::extractor::runDocumentExtraction(norvast::extractor::officeKind(arguments[1]),
                                                  arguments[2]));
}
