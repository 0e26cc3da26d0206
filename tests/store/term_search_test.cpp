// The search for many terms at once: the very records of one search a term, over random libraries.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "store/library_queries.h"
#include "store/term_search.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

using Paths = std::vector<std::string>;

class Library {
 public:
  explicit Library(unsigned seed) : random_(seed) {
    std::string sql;
    for (int file = 0; file < 120; ++file) {
      const std::string path = "'/" + std::to_string(file) + "'";
      sql += "INSERT INTO file VALUES(" + path + "," + value() + ",'','',0," + modified() + ");";
      for (std::size_t times = below(5); times > 2; --times) {
        sql += "INSERT INTO analysis VALUES(" + path + "," + value() + "," + value() + ",'');";
      }
    }
    // Further indexes of a foreign table, by which it may be read in another order.
    if (seed % 2 == 1) {
      sql +=
          "CREATE INDEX narrow ON file(modified, name, path);"
          "CREATE INDEX wide ON file(name, path, ext, grp, size, modified);";
    }
    home_.createIndex("BEGIN;" + sql + "COMMIT;");
    setenv("HOME", home_.path().c_str(), 1);
  }

  std::vector<std::string> terms() {
    std::set<std::string> terms;
    for (int term = 0; term < 12; ++term) terms.insert(word(below(3) + 1));
    terms.insert(std::string(49'999, 'a'));  // with its wildcards more than LIKE takes
    return {terms.begin(), terms.end()};
  }

  std::int64_t limit() { return static_cast<std::int64_t>(below(30)) - 1; }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  std::string any(const std::vector<std::string>& texts) { return texts[below(texts.size())]; }

  std::string word(std::size_t pieces) {
    std::string word;
    while (pieces-- > 0) word += any({"a", "ab", "b", "é", "e\u0301", "日", "µ", "0"});
    return word;
  }

  // With invalid bytes, some of which LIKE reads as letters, and with NULs.
  std::string text() {
    std::string text;
    for (std::size_t pieces = below(8); pieces > 0; --pieces) {
      const std::string odd = any({"A", "É", "\xE0\x83\xA9", "\xB5", "\xC3", std::string(1, '\0')});
      text += below(8) == 0 ? odd : below(4) == 0 ? " " : word(2);
    }
    return text;
  }

  std::string value() {
    static constexpr const char* DIGITS = "0123456789ABCDEF";
    const std::size_t kind = below(20);
    if (kind == 0) return "NULL";
    if (kind == 1) return "10";
    std::string literal = "X'";
    for (const char byte : text()) {
      const auto number = static_cast<unsigned char>(byte);
      literal.append(1, DIGITS[number / 16]).append(1, DIGITS[number % 16]);
    }
    return kind == 2 ? literal + "'" : "CAST(" + literal + "' AS TEXT)";
  }

  std::string modified() {
    return any({"1", "1", "2", "3", "-4", "2.5", "9223372036854775807", "9.3e18", "NULL", "'x'",
                "'X'", "X'00'"});
  }

  TestHome home_;
  std::mt19937 random_;
};

TEST(TermSearch, FindsWhatOneSearchATermFinds) {
  for (unsigned seed = 0; seed < 8; ++seed) {
    Library library(seed);
    const auto store = MCPStore::open();
    ASSERT_TRUE(store);
    const std::vector<std::string> terms = library.terms();
    const std::int64_t limit = library.limit();

    std::vector<Paths> together(terms.size());
    searchTerms(*store, terms, limit,
                [&](std::size_t term, const std::string& path) { together[term].push_back(path); });
    for (std::size_t term = 0; term < terms.size(); ++term) {
      Paths alone;
      for (const Json& record : searchLibrary(*store, terms[term], limit)) {
        alone.push_back(*member(*record.object(), "path")->string());
      }
      EXPECT_EQ(together[term], alone) << seed << ": " << terms[term].substr(0, 20) << " " << limit;
    }
  }
}

TEST(TermSearch, FailsWithoutAColumnThatOneSearchNames) {
  for (const char* column : {"ext", "grp", "size", "modified"}) {
    const TestHome home;
    home.createIndex(
        "INSERT INTO file VALUES('/a','budget','','',0,1);ALTER TABLE file DROP COLUMN " +
        std::string(column));
    setenv("HOME", home.path().c_str(), 1);
    const auto store = MCPStore::open();
    ASSERT_TRUE(store);
    const std::vector<std::string> terms = {"budget"};
    EXPECT_TRUE(searchLibrary(*store, "budget", 9).empty());
    searchTerms(*store, terms, 9,
                [&](std::size_t, const std::string&) { ADD_FAILURE() << column; });
  }
}

}  // namespace
}  // namespace norvast
