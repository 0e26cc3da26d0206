// Passages: a text cut into pieces that can be quoted.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// The text in pieces of at most 600 user-perceived characters, in order, without the white space
// around them; none is empty, and all but white space is in one of them. A piece ends at the last
// end of a paragraph in its second half, else at the last end of a sentence there, else of a line
// or word, else where it is full, but never inside a user-perceived character. Linear in the text.
std::vector<std::string> cutPassages(std::string_view text);

}  // namespace norvast
