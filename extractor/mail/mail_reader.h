// Mail reader: single mails (eml) and mailboxes (mbox), by RFC 5322 and MIME.
#pragma once

#include <cstddef>
#include <string_view>

#include "extractor/program/document_kind.h"

namespace norvast::extractor {

// The subject as title, the sender as author; From, To, Cc and Date as details; then the text: of
// forms of one text the plain one, if it says anything; what it quotes of earlier mails, and what
// stands behind the line "-- ", as asides. Mails within it follow, attachments are details by their
// names. decodingFailed when the bytes are no mail, encrypted when all its text is.
ReadDocument readMail(std::string_view bytes, std::size_t limitCharacters);

// The same for each mail of a mailbox, which begins a part named by its subject.
ReadDocument readMailbox(std::string_view bytes, std::size_t limitCharacters);

// The kind of that name, "mail" or "mailbox", or nullptr.
const DocumentKind* mailKind(std::string_view name);

}  // namespace norvast::extractor
