// HTML elements: what each one means for the text within it (HTML Living Standard, section 15).
#pragma once

#include <string_view>

namespace norvast::extractor {

enum class HtmlElement {
  inlineText,  // a part of the text around it; also every element that is not known
  block,       // a paragraph of its own
  heading,
  lineBreak,
  preformatted,
  table,
  row,
  cell,
  aside,   // navigation and the like
  hidden,  // no text of the page
  title,
  link,
};

// Returns the meaning of the element with that name, which is in lower case.
HtmlElement htmlElement(std::string_view name);

}  // namespace norvast::extractor
