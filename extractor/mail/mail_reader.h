// Mail reader: single mails (eml) and mailboxes (mbox), by RFC 5322 and MIME.
#pragma once

#include <cstddef>
#include <string_view>

#include "extractor/program/document_kind.h"

namespace norvast::extractor {

// Returns a mail with its subject as the title and its sender as the author. From, To, Cc and Date
// are details, as are the names of attachments. Of several forms of one text the plain one is
// taken, if it says anything. Quotations of earlier mails and the signature behind the line "-- "
// are asides. Mails within the mail follow its text. Fails with decodingFailed if the bytes are no
// mail, and with encrypted if all of its text is.
ReadDocument readMail(std::string_view bytes, std::size_t limitCharacters);

// Returns all mails of a mailbox, each as a part with the mail's subject as its name. Fails with
// decodingFailed if the bytes do not begin as a mailbox does.
ReadDocument readMailbox(std::string_view bytes, std::size_t limitCharacters);

// Returns the kind of that name, "mail" or "mailbox", or nullptr.
const DocumentKind* mailKind(std::string_view name);

}  // namespace norvast::extractor
