#include "language/english_stemmer.h"

#include <libstemmer.h>

#include <cstddef>

namespace norvast {
namespace {

// A longer run of letters is no English word.
constexpr std::size_t LONGEST_WORD_BYTES = 64;

}  // namespace

void EnglishStemmer::Delete::operator()(sb_stemmer* stemmer) const { sb_stemmer_delete(stemmer); }

std::optional<EnglishStemmer> EnglishStemmer::open() {
  EnglishStemmer english;
  english.stemmer_.reset(sb_stemmer_new("english", "UTF_8"));
  if (!english.stemmer_) return std::nullopt;
  return english;
}

std::string EnglishStemmer::stem(const std::string& word) const {
  if (word.size() > LONGEST_WORD_BYTES) return word;
  const auto* symbols = reinterpret_cast<const sb_symbol*>(word.data());
  const sb_symbol* stem = sb_stemmer_stem(stemmer_.get(), symbols, static_cast<int>(word.size()));
  if (stem == nullptr) return word;  // out of memory
  return {reinterpret_cast<const char*>(stem),
          static_cast<std::size_t>(sb_stemmer_length(stemmer_.get()))};
}

}  // namespace norvast
