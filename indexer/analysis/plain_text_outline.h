// Plain text outline: headings, paragraphs and code told from each other by how their lines look.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "indexer/analysis/outline.h"

namespace norvast::indexer {

enum class PlainTextKind : std::uint8_t { prose, markdown, program };

// By the extension of the file's name; a script is a program without one, too.
PlainTextKind plainTextKindOf(std::string_view text, std::string_view name);

// The stretches of a text, in time linear in it:
//   - A heading is a line that is underlined (= - ~ ^ * " + #), that begins with # (in prose only
//     where it stands alone), that stands alone and is numbered (2.1 Pumps) or all in capitals,
//     that stands out to the left of indented text, or that stands alone above all other text.
//   - Lines that follow each other are one paragraph; one with a mark of its own begins a new one.
//   - Code is what stands between fences (```), and in a program all but its comments.
std::vector<Stretch> stretchesOfPlainText(std::string_view text, PlainTextKind kind);

}  // namespace norvast::indexer
