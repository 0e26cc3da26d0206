// Presentation reader: the slides of presentations (pptx, pptm, ppsx, ppsm, potx, potm).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Slides in the order in which they are shown, each a part ("Slide 3"): its title as a heading, its
// paragraphs and table rows, its diagrams, then the speaker's notes. What the slides' designs say
// is left out.
ReadDocument readPresentation(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
