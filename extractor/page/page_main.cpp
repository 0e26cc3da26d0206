// norvast_extract_page KIND LIMIT: the same as norvast_extract_document, for the kinds of texts
// with marks in them (page_kinds.h).
#include <unistd.h>

#include "extractor/page/page_kinds.h"

int main(int count, char** arguments) {
  if (count != 3) return 1;
  _exit(norvast::extractor::runDocumentExtraction(norvast::extractor::pageKind(arguments[1]),
                                                  arguments[2]));
}
