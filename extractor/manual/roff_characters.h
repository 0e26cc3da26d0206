// Roff characters: the signs that roff has names for.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// The sign of that name, "em" or "u2014", as UTF-8; empty for a name that is not known
// (groff_char(7)).
std::string roffCharacter(std::string_view name);

}  // namespace norvast::extractor
