// Terminal: whether a person is looking, and what may be shown to them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace norvast::indexer {

// True when standard error is a terminal.
bool isErrorTerminal();

// How many columns it has; 80 where that cannot be told.
std::size_t errorTerminalColumns();

enum class Colour { plain, yellow, red };

// The text in that colour when standard output is a terminal and NO_COLOR is not set, else
// as it is.
std::string coloured(std::string_view text, Colour colour);

// The text on one line and with nothing invisible in it (text/visible_text.h): names of files and
// queries of clients are a stranger's words and must not steer the terminal, nor show in an order
// that is not theirs.
std::string printable(std::string_view text);

// "1,234,567"
std::string grouped(std::uint64_t number);

}  // namespace norvast::indexer
