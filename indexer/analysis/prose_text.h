// Prose text: what is read aloud of a stretch of a text, without marks and markup.
#pragma once

#include <string>
#include <string_view>

namespace norvast::indexer {

// The text on one line, without marks at the beginnings of its lines, and without what marks up
// Markdown and the like: of a link its words, of an image nothing, no tags, asterisks and
// backticks.
std::string proseText(std::string_view text);

}  // namespace norvast::indexer
