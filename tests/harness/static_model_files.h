// A static model of a dozen pieces, written by hand for tests.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace norvast {

inline std::string tinyTokenizer(const std::string& normalizer = R"({"type":"BertNormalizer"})",
                                 const std::string& cutter = R"({"type":"BertPreTokenizer"})",
                                 const std::string& model = "WordPiece") {
  return R"({"normalizer":)" + normalizer + R"(,"pre_tokenizer":)" + cutter +
         R"(,"model":{"type":")" + model +
         R"(","unk_token":"[UNK]","vocab":{"[UNK]":0,"car":1,"auto":2,"##s":3,"cafe":4,"京":5,)"
         R"("!":6,"pump":7,"##ing":8,"garden":9,"İ":10,"##mobile":11}}})";
}

inline std::string littleEndian(std::uint64_t number, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, number >>= 8) text += static_cast<char>(number & 0xFF);
  return text;
}

inline std::string float32s(const std::vector<float>& numbers) {
  std::string bytes;
  for (const float number : numbers) bytes += littleEndian(std::bit_cast<std::uint32_t>(number), 4);
  return bytes;
}

inline std::string safetensors(const std::string& header, const std::string& data) {
  return littleEndian(header.size(), 8) + header + data;
}

// Rows of two numbers: "car" and "auto" lie together, "garden" across; `turn` is 1 or -1.
inline std::string tinyTable(float turn = 1) {
  return safetensors(
      R"({"embeddings":{"dtype":"F32","shape":[12,2],"data_offsets":[0,96]}})",
      float32s({9, 9, 1, 0, turn, 0, 0, 1, 0, -1, 3, 4, 0, 0, 1, 1, 0, 2, 0, 5, 7, 7, 0, 0}));
}

}  // namespace norvast
