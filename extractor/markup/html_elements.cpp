#include "extractor/markup/html_elements.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace norvast::extractor {
namespace {

using enum HtmlElement;

// In the order of their names.
constexpr std::pair<std::string_view, HtmlElement> ELEMENTS[] = {
    {"a", link},           {"address", block},    {"article", block},   {"aside", aside},
    {"audio", hidden},     {"blockquote", block}, {"body", block},      {"br", lineBreak},
    {"button", hidden},    {"canvas", hidden},    {"caption", block},   {"center", block},
    {"dd", block},         {"details", block},    {"dialog", hidden},   {"dir", block},
    {"div", block},        {"dl", block},         {"dt", block},        {"fieldset", block},
    {"figcaption", block}, {"figure", block},     {"footer", aside},    {"form", block},
    {"h1", heading},       {"h2", heading},       {"h3", heading},      {"h4", heading},
    {"h5", heading},       {"h6", heading},       {"header", block},    {"hr", block},
    {"iframe", hidden},    {"legend", block},     {"li", block},        {"listing", preformatted},
    {"main", block},       {"map", hidden},       {"menu", block},      {"nav", aside},
    {"noframes", hidden},  {"noscript", hidden},  {"object", hidden},   {"ol", block},
    {"optgroup", hidden},  {"option", hidden},    {"p", block},         {"plaintext", preformatted},
    {"pre", preformatted}, {"script", hidden},    {"section", block},   {"select", hidden},
    {"style", hidden},     {"summary", block},    {"svg", hidden},      {"table", table},
    {"tbody", block},      {"td", cell},          {"template", hidden}, {"textarea", hidden},
    {"tfoot", block},      {"th", cell},          {"thead", block},     {"title", title},
    {"tr", row},           {"ul", block},         {"video", hidden},    {"xmp", preformatted},
};

}  // namespace

HtmlElement htmlElement(std::string_view name) {
  const auto* found = std::lower_bound(
      std::begin(ELEMENTS), std::end(ELEMENTS), name,
      [](const auto& element, std::string_view wanted) { return element.first < wanted; });
  return found != std::end(ELEMENTS) && found->first == name ? found->second : inlineText;
}

}  // namespace norvast::extractor
