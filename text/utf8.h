// UTF-8: what is valid, and how invalid bytes are repaired (The Unicode Standard, section 3.9).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvast {

// True when every byte is ASCII.
bool isAscii(std::string_view bytes);

// How many leading bytes are valid UTF-8: all of them, or those before the first invalid sequence.
std::size_t validUtf8Length(std::string_view bytes);

// True when `bytes`, which begin with an invalid sequence, are only the beginning of one character
// whose further bytes are missing: what a cut at a byte limit leaves.
bool isCutCharacter(std::string_view bytes);

// The leading bytes of valid UTF-8, at most `limit` of them, that end between two characters.
std::string_view firstBytes(std::string_view utf8, std::size_t limit);

// Appends the character with that number, which must not be a surrogate or beyond U+10FFFF.
void appendUtf8(std::string& text, char32_t scalar);

// The first character of a text with all bytes that continue it; empty for an empty text. Of
// invalid bytes as many as look like that.
std::string_view firstCharacter(std::string_view text);

// The bytes as valid UTF-8: each maximal invalid part replaced by one U+FFFD, all else unchanged.
std::string repairUtf8(std::string bytes);

}  // namespace norvast
