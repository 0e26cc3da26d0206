// norvast_extract_old_word KIND LIMIT: the same as norvast_extract_document, for the kinds of
// old_word_kinds.h.
#include <unistd.h>

#include "extractor/old_word_kinds.h"

int main(int count, char** arguments) {
  if (count != 3) return 1;
  _exit(norvast::runDocumentExtraction(norvast::oldWordKind(arguments[1]), arguments[2]));
}
