// norvast_extract_old_office KIND LIMIT: the same as norvast_extract_document, for the kinds of
// old_office_kinds.h.
#include <unistd.h>

#include "extractor/old_office/old_office_kinds.h"

int main(int count, char** arguments) {
  if (count != 3) return 1;
  _exit(norvast::extractor::runDocumentExtraction(norvast::extractor::oldOfficeKind(arguments[1]),
                                                  arguments[2]));
}
