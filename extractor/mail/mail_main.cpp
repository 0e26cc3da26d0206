// norvast_extract_mail KIND LIMIT: the same as norvast_extract_document, for the kinds "mail" and
// "mailbox".
#include <unistd.h>

#include "extractor/mail/mail_reader.h"

int main(int count, char** arguments) {
  if (count != 3) return 1;
  _exit(norvast::extractor::runDocumentExtraction(norvast::extractor::mailKind(arguments[1]),
                                                  arguments[2]));
}
