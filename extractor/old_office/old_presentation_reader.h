// Old presentation reader: the slides of PowerPoint 97 to 2003 (ppt, pps, pot), by [MS-PPT].
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Slides in the order in which they are shown, each a part ("Slide 3"): titles as headings, then
// the paragraphs of its outline and its text boxes, then the speaker's notes. Of a file that was
// saved several times, the last state. CompoundFile::prepare first.
ReadDocument readOldPresentation(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
