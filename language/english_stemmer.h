// English stemmer: the stem that a word shares with its inflections.
#pragma once

#include <memory>
#include <optional>
#include <string>

struct sb_stemmer;

namespace norvast {

// Snowball's English stemmer (Porter2).
class EnglishStemmer {
 public:
  static std::optional<EnglishStemmer> open();

  // The stem of a lower-case word in UTF-8; the word itself when it has no other
  // or more than 64 bytes.
  std::string stem(const std::string& word) const;

 private:
  struct Delete {
    void operator()(sb_stemmer* stemmer) const;
  };

  EnglishStemmer() = default;

  std::unique_ptr<sb_stemmer, Delete> stemmer_;
};

}  // namespace norvast
