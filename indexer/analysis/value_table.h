// Value table: measurements, logs and records, of which a few pieces say as much as thousands.
#pragma once

#include <cstddef>
#include <string_view>

namespace norvast::indexer {

// Of a run of pieces that are tables of values, and of all of them in one file.
inline constexpr std::size_t MOST_VALUE_PIECES_A_RUN = 20;
inline constexpr std::size_t MOST_VALUE_PIECES_A_FILE = 100;

// Whether a piece of text is part of such a table: four lines or more, three in four of which begin
// with a time, are made of numbers for the most part, or have the same number (two or more) of the
// same separator (tab, comma, semicolon, |) as the line before.
bool isTableOfValues(std::string_view piece);

}  // namespace norvast::indexer
