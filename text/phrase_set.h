// Phrase set: whether a text holds any of many phrases, going through the text once.
#pragma once

#include <bitset>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace norvast {

class PhraseSet {
 public:
  // Phrases of four bytes or more, which must outlive the set.
  explicit PhraseSet(std::span<const std::string_view> phrases) : phrases_(phrases) {
    for (const std::string_view phrase : phrases) {
      assert(phrase.size() >= BEGINNING);
      beginnings_.set(slotOf(phrase.data()));
    }
  }

  bool isIn(std::string_view text) const {
    for (std::size_t at = 0; at + BEGINNING <= text.size(); ++at) {
      if (beginnings_[slotOf(text.data() + at)] && beginsOneOf(text.substr(at))) return true;
    }
    return false;
  }

 private:
  static constexpr std::size_t BEGINNING = 4;

  // Where four bytes are marked. Others may share the place, by Fibonacci hashing seldom (Knuth,
  // The Art of Computer Programming, section 6.4).
  static std::size_t slotOf(const char* bytes) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes, BEGINNING);
    return (number * 2654435769U) >> 16U;
  }

  bool beginsOneOf(std::string_view text) const {
    for (const std::string_view phrase : phrases_) {
      if (text.starts_with(phrase)) return true;
    }
    return false;
  }

  std::span<const std::string_view> phrases_;
  std::bitset<0x10000> beginnings_;
};

}  // namespace norvast
