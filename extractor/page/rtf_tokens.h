// RTF tokens: a Rich Text Format file as a row of groups, control words and text (Rich Text Format
// Specification 1.9.1, "Conventions of an RTF Reader").
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace norvast::extractor {

struct RtfToken {
  enum class Kind {
    groupStart,
    groupEnd,
    word,  // \name, \nameN, or a symbol as \~: the name is then that one character
    byte,  // \'hh: a character of the text's encoding
    text,  // as it stands, line breaks of the file left out
    finished
  };
  Kind kind = Kind::finished;
  std::string_view text;      // name of the word; the text
  std::optional<int> number;  // of the word; the byte
};

class RtfTokens {
 public:
  // `bytes` must outlive the tokens.
  explicit RtfTokens(std::string_view bytes) : rest_(bytes) {}

  RtfToken next();

 private:
  RtfToken control();
  std::string_view take(std::size_t count);

  std::string_view rest_;
};

}  // namespace norvast::extractor
