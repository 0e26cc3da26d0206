// Outlook reader: single mails as Outlook saves them (msg), by [MS-OXMSG].
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// The subject as title, the sender as author; sender, recipients, date and attachments by name as
// details; the plain text, or where there is none that of the page. CompoundFile::prepare first.
ReadDocument readOutlookMail(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
