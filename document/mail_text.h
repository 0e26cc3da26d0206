// Mail text: the plain text of a mail, of whatever format the mail is.
#pragma once

#include <string_view>

#include "document/document_builder.h"

namespace norvast {

// Adds the text by paragraphs: those that it quotes ("> ..."), and its signature, which is all
// behind the line "-- ", as asides.
void addMailText(std::string_view text, DocumentBuilder& document);

}  // namespace norvast
