// Visible text: a stranger's words as a person sees them, with nothing that steers how they look.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The text with U+FFFD for each control character, bidirectional control, invisible format
// character and separator of lines or paragraphs, and for what is not UTF-8. Variation selectors
// stay: they only choose between two looks of the character before. By general category and
// Default_Ignorable_Code_Point (UAX #44).
std::string visibleText(std::string_view text);

// The text of a JSON value with each such character but line feeds as its \u escape, so that its
// value stays the same; what is not UTF-8 becomes U+FFFD.
std::string visibleJson(std::string_view json);

}  // namespace norvast
