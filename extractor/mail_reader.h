// Mail reader: single mails (eml) and mailboxes (mbox), by RFC 5322 and MIME.
#pragma once

#include <cstddef>
#include <string_view>

#include "extractor/document_builder.h"

namespace norvast {

// Loads what reading needs of the system's files, for a process that gives up opening them.
void prepareMail();

// The subject as title, the sender as author; From, To, Cc and Date as details; then the text: of
// forms of one text the plain one, if it says anything; what it quotes of earlier mails, and what
// stands behind the line "-- ", as asides. Mails within it follow, attachments are details by their
// names. decodingFailed when the bytes are no mail, encrypted when all its text is.
ReadDocument readMail(std::string_view bytes, std::size_t limitCharacters);

// The same for each mail of a mailbox, which begins a part named by its subject.
ReadDocument readMailbox(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast
