// Term finder: which of many terms occur in a text, in one walk over it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// The terms as a tree of their bytes: from each place in a text it is followed as far as the text
// goes along with it, however many terms there are.
class TermFinder {
 public:
  // The terms are neither empty nor, but for the case of ASCII letters, equal. Memory is 16 times
  // that of the terms.
  explicit TermFinder(std::span<const std::string> terms);

  // Adds the number of a term, counted from 0, for each place where it occurs in the text. ASCII
  // letters match without regard to case, all else byte for byte.
  void find(std::string_view text, std::vector<std::uint32_t>& found) const;

 private:
  struct Node {
    char byte = 0;  // in lower case
    std::uint32_t firstChild = NONE;
    std::uint32_t nextSibling = NONE;
    std::uint32_t term = NO_TERM;  // that ends here
  };

  static constexpr std::uint32_t NONE = 0;  // the root is nobody's child
  static constexpr std::uint32_t NO_TERM = UINT32_MAX;

  std::uint32_t childOf(std::uint32_t parent, char byte) const;
  std::uint32_t madeChildOf(std::uint32_t parent, char byte);

  std::vector<Node> nodes_{Node{}};              // the root first
  std::array<std::uint32_t, 256> firstNodes_{};  // of the terms, by either case of their first byte
};

}  // namespace norvast
