// Documents as bytes: what the program that asked for them takes, and what it does not.
#include "document/document.h"

#include <gtest/gtest.h>

#include <string>

namespace norvast {
namespace {

std::string field(char letter, std::size_t bytes) {
  return letter + std::string(bytes, 'x') + '\x1e';
}

TEST(DocumentBytes, AreTakenWithinTheirBoundsAlone) {
  struct Row {
    const char* what;
    std::string bytes;
    bool isTaken;
  };
  const Row rows[] = {
      {"the longest method", field('m', MOST_METHOD_BYTES), true},
      {"the longest title", field('t', MOST_NAME_BYTES), true},
      {"a long paragraph", field('p', 2'000'000), true},
      {"a longer method", field('m', MOST_METHOD_BYTES + 1), false},
      {"a longer title", field('t', MOST_NAME_BYTES + 1), false},
      {"a longer author", field('w', MOST_NAME_BYTES + 1), false},
      {"a longer heading", field('p', 9) + field('h', MOST_NAME_BYTES + 1), false},
      {"a longer part", field('s', MOST_NAME_BYTES + 1), false},
      {"an unknown field", field('z', 1), false},
      {"a field without its end", "px", false},
      {"a control character", "p\x1bx\x1e", false},
      {"half a character", "p\xc3\x1e", false},
  };
  for (const Row& row : rows)
    EXPECT_EQ(parseDocument(row.bytes).has_value(), row.isTaken) << row.what;
}

TEST(DocumentWithinBounds, KeepsTheTextOfLongHeadings) {
  using Kind = DocumentBlock::Kind;
  const std::string name(MOST_NAME_BYTES + 1, 'x');
  const Document bounded = withinBounds({name, name, "", {{Kind::part, name}}});
  EXPECT_EQ(bounded.method.size(), MOST_METHOD_BYTES);
  EXPECT_LE(bounded.title.size(), MOST_NAME_BYTES);
  EXPECT_EQ(bounded.blocks, (std::vector<DocumentBlock>{{Kind::paragraph, name}}));
}

}  // namespace
}  // namespace norvast
