// Encoding: texts in any encoding as UTF-8, by what they say of themselves or look like.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace norvast {

// Whether bytes are all of a text, or its beginning, which may end within a character.
enum class Extent { whole, leading };

// The text in `bytes` as UTF-8, without a byte-order mark: by that mark (UTF-8, UTF-16, UTF-32),
// else as UTF-8 when all of it is valid, else in the encoding that it most likely has. Nothing when
// there is too much doubt, or a NUL says that it is no text.
std::optional<std::string> decodedText(std::string_view bytes, Extent extent);

// The text in `bytes` as UTF-8, from the encoding of that name; names are those of the IANA and
// the ones that are in use beside them, in any case. As in mails and pages, ISO 8859-1 and ASCII
// mean windows-1252 (WHATWG, Encoding, 4.2). Bytes that stand for nothing give U+FFFD. Nothing for
// a name that is not known.
std::optional<std::string> decodedFrom(std::string_view bytes, const std::string& encoding);

}  // namespace norvast
