#include "document/text_markup.h"

#include <algorithm>
#include <iterator>

#include "text/ascii.h"

namespace norvast {
namespace {

bool isPage(std::string_view bytes) {
  const std::size_t start = std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size());
  const std::string head = asciiLowerCase(bytes.substr(start, 15));
  return head.starts_with("<!doctype html") || head.starts_with("<html");
}

// By its first line that says something: a comment, or what manual pages begin with.
bool isManual(std::string_view bytes) {
  constexpr std::string_view FIRST[] = {".\\\"", "'\\\"", ".\\#",  ".TH ", ".Dd ", ".SH ", ".Dt ",
                                        ".so ",  ".de ",  ".ds ",  ".nr ", ".if ", ".ie ", ".mso ",
                                        ".ig\n", ".na\n", ".nh\n", ".ad ", ".ll ", ".pl "};
  const std::size_t start = std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size());
  std::string_view rest = bytes.substr(start);
  while (rest.starts_with(".\n")) rest.remove_prefix(2);
  return std::any_of(std::begin(FIRST), std::end(FIRST),
                     [rest](std::string_view request) { return rest.starts_with(request); });
}

}  // namespace

TextMarkup markupOf(std::string_view bytes) {
  if (isPage(bytes)) return TextMarkup::html;
  if (bytes.starts_with("<?xml")) return TextMarkup::xml;
  if (bytes.starts_with("%!PS")) return TextMarkup::postScript;
  return isManual(bytes) ? TextMarkup::manual : TextMarkup::none;
}

}  // namespace norvast
