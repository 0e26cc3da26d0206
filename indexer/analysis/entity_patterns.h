// Entity patterns: what a single word, bare of the punctuation around it, can be.
#pragma once

#include <string_view>

namespace norvast::indexer {

// name@host.org, of the characters that RFC 5321 allows outside quotation marks.
bool isEmailAddress(std::string_view word);

// The address that begins with http://, https:// or www. in a word, of the characters that RFC 3986
// allows, up to the punctuation or markup behind it. Empty when there is none.
std::string_view webAddressIn(std::string_view word);

// 2026-05-14, 14.05.2026, 5/14/2026.
bool isNumericDate(std::string_view word);

// 1 to 31, also as 1st, 2nd, 3rd, 4th.
bool isDayOfMonth(std::string_view word);

// Four digits from 1000 to 2999.
bool isYear(std::string_view word);

// Digits alone, with one letter behind them at the most: 8, 12a.
bool isHouseNumber(std::string_view word);

// Street, Road, Avenue and the like, or a German word that ends in -straße, -weg, -platz and the
// like.
bool isStreetWord(std::string_view word);

// A capital, then small letters, hyphens or apostrophes, with further capitals only behind those or
// behind a small letter (Keller, O'Brien, McDonald, Jean-Luc); or an initial (J.).
bool isCapitalised(std::string_view word);

}  // namespace norvast::indexer
