// BERT words: a text cleaned and cut as the tokenizers of BERT's models do it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// What is done to a text before it is cut, by the names in a tokenizer's declaration.
struct BertNormalization {
  bool cleanText = true;           // controls and U+FFFD dropped, white space is a blank
  bool handleChineseChars = true;  // each ideograph is a word
  bool stripAccents = true;        // decomposed (NFD), nonspacing marks dropped
  bool lowercase = true;           // by the default mapping of no language
};

// The words of the text, which is repaired where it is no UTF-8: what stands between white space,
// and each punctuation mark by itself (of ASCII every graphic character but letters and digits, of
// the others those of a general category P). Linear in the text.
// Source: the BertNormalizer and BertPreTokenizer of Hugging Face's tokenizers.
std::vector<std::string> bertWords(std::string_view bytes, const BertNormalization& options);

}  // namespace norvast
