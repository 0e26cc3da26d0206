#include "indexer/console/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>

#include "text/visible_text.h"

namespace norvast::indexer {
namespace {

std::string_view sequence(Colour colour) {
  switch (colour) {
    case Colour::yellow:
      return "\033[33m";
    case Colour::red:
      return "\033[31m";
    case Colour::plain:
      break;
  }
  return "\033[0m";
}

// https://no-color.org: colours are off while it is set and not empty.
bool isColourRefused() {
  const char* wish = std::getenv("NO_COLOR");
  return wish != nullptr && *wish != '\0';
}

}  // namespace

bool isErrorTerminal() { return isatty(STDERR_FILENO) == 1; }

std::size_t errorTerminalColumns() {
  constexpr std::size_t USUAL_COLUMNS = 80;
  winsize size{};
  const bool isTold = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isTold ? size.ws_col : USUAL_COLUMNS;
}

std::string coloured(std::string_view text, Colour colour) {
  if (colour == Colour::plain || isatty(STDOUT_FILENO) != 1 || isColourRefused())
    return std::string(text);
  return std::string(sequence(colour)).append(text).append(sequence(Colour::plain));
}

std::string printable(std::string_view text) { return visibleText(text); }

std::string grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return digits;
}

}  // namespace norvast::indexer
