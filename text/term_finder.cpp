#include "text/term_finder.h"

#include "text/ascii.h"

namespace norvast {

TermFinder::TermFinder(std::span<const std::string> terms) {
  std::uint32_t number = 0;
  for (const std::string& term : terms) {
    std::uint32_t node = 0;
    for (const char byte : term) node = madeChildOf(node, asciiLowerCase(byte));
    nodes_[node].term = number++;
  }
  for (std::size_t byte = 0; byte < firstNodes_.size(); ++byte) {
    firstNodes_[byte] = childOf(0, asciiLowerCase(static_cast<char>(byte)));
  }
}

void TermFinder::find(std::string_view text, std::vector<std::uint32_t>& found) const {
  for (std::size_t start = 0; start < text.size(); ++start) {
    std::uint32_t node = firstNodes_[static_cast<unsigned char>(text[start])];
    for (std::size_t at = start + 1; node != NONE; ++at) {
      if (nodes_[node].term != NO_TERM) found.push_back(nodes_[node].term);
      node = at < text.size() ? childOf(node, asciiLowerCase(text[at])) : NONE;
    }
  }
}

std::uint32_t TermFinder::childOf(std::uint32_t parent, char byte) const {
  std::uint32_t child = nodes_[parent].firstChild;
  while (child != NONE && nodes_[child].byte != byte) child = nodes_[child].nextSibling;
  return child;
}

std::uint32_t TermFinder::madeChildOf(std::uint32_t parent, char byte) {
  if (const std::uint32_t child = childOf(parent, byte); child != NONE) return child;
  const auto made = static_cast<std::uint32_t>(nodes_.size());
  nodes_.push_back({byte, NONE, nodes_[parent].firstChild, NO_TERM});
  nodes_[parent].firstChild = made;
  return made;
}

}  // namespace norvast
