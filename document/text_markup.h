// Text markup: in what language of marks a text is written, by how it begins.
#pragma once

#include <cstdint>
#include <string_view>

namespace norvast {

enum class TextMarkup : std::uint8_t {
  none,  // or one that reads well as it stands
  html,  // a web page
  xml,
  postScript,  // a program that draws pages, which does not tell their text
  manual       // a manual page in the requests and macros of roff(7), man(7) and mdoc(7)
};

// Of the leading bytes of a text in an encoding that contains ASCII.
TextMarkup markupOf(std::string_view bytes);

}  // namespace norvast
