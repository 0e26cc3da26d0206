// Presentation reader: the slides of presentations (pptx, pptm, ppsx, ppsm, potx, potm).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the slides in the order in which they are shown. Each is a part ("Slide 3") with its
// title as a heading, its paragraphs and table rows, its diagrams, and then the speaker's notes.
// Texts of the slides' designs are left out.
ReadDocument readPresentation(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
