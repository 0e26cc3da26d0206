#include "companion/terminal.h"

#include <unistd.h>

namespace norvast {
namespace {

constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

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

// C0 and DEL are one byte; C1 is U+0080 to U+009F, which UTF-8 writes as C2 80 to C2 9F.
bool isControl(unsigned char byte) { return byte < 0x20 || byte == 0x7F; }

}  // namespace

bool isErrorTerminal() { return isatty(STDERR_FILENO) == 1; }

std::string coloured(std::string_view text, Colour colour) {
  if (colour == Colour::plain || isatty(STDOUT_FILENO) != 1) return std::string(text);
  return std::string(sequence(colour)).append(text).append(sequence(Colour::plain));
}

std::string printable(std::string_view text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    if (isControl(byte)) {
      shown += REPLACEMENT_CHARACTER;
    } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
      shown += REPLACEMENT_CHARACTER;
      ++at;
    } else {
      shown += text[at];
    }
  }
  return shown;
}

std::string grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return digits;
}

}  // namespace norvast
