// The static model: its tokenizer, its formats, what is refused, and its part of a sentence's
// vector.
#include "embedding/static_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/harness/static_model_files.h"

namespace norvast {
namespace {

using Numbers = std::vector<double>;

std::vector<char> bytes(const std::string& text) { return {text.begin(), text.end()}; }

std::variant<StaticModel, std::string> read(const std::string& table,
                                            const std::string& tokenizer = tinyTokenizer()) {
  return StaticModel::fromFiles(tokenizer, bytes(table));
}

TEST(WordPieceTokenizer, CutsTextsAsBertDoes) {
  const auto tokenizer =
      std::get<WordPieceTokenizer>(WordPieceTokenizer::fromJson(tinyTokenizer()));
  const struct {
    std::string text;
    std::vector<std::uint32_t> ids;
  } rows[] = {
      {"Car cars", {1, 1, 3}},
      {"Automobiles", {2, 11, 3}},
      {"CAFÉ cafe\u0301s", {4, 4, 3}},
      {"京京car", {5, 5, 1}},
      {"pumping!car", {7, 8, 6, 1}},
      {"carpet pumps", {7, 3}},  // what does not end in pieces is unknown
      {"car\u200Bs ca\u00ADr\uFFFD\x07 \xFF", {1, 3, 1}},
      {"car\u00A0\u3000\tauto", {1, 2}},
      {"sing s [UNK]", {}},  // a continuation begins no word
      {"car" + std::string(97, 's'), std::vector<std::uint32_t>(98, 3)},
      {"car" + std::string(98, 's'), {}},  // over 100 characters
      {"", {}},
  };
  for (const auto& row : rows) {
    auto expected = row.ids;
    if (expected.size() == 98) expected[0] = 1;
    EXPECT_EQ(tokenizer.tokenize(row.text, 512), expected) << row.text;
  }
  EXPECT_EQ(tokenizer.tokenize("cars cars", 3).size(), 3U);

  const auto cased = std::get<WordPieceTokenizer>(WordPieceTokenizer::fromJson(
      tinyTokenizer(R"({"type":"BertNormalizer","lowercase":false})")));
  EXPECT_EQ(cased.tokenize("İ Car car café", 512), (std::vector<std::uint32_t>{10, 1}));
}

TEST(StaticModel, ReadsEveryFormat) {
  constexpr double HALF = 1 / std::numbers::sqrt2;
  const std::string header = R"({"__metadata__":{"a":"b"},"other":{"dtype":"BF16","shape":[1],)"
                             R"("data_offsets":[0,2]},"embedding.weight":)";
  const std::string weights = float32s({0, 1, 1, 1, 1, 1, 1, 1, 1, 2, 1, 1});
  std::string half;
  std::string eighth;
  std::string mapping;
  for (int piece = 0; piece < 12; ++piece) {
    half += littleEndian(piece == 9 ? 0x82000400 : 0xC0003C00, 4);  // 2^-15 (2, -1) or (1, -2)
    eighth += littleEndian(piece == 9 ? 0x00FF : 0x0001, 2);        // (-1, 0) or (1, 0)
    mapping += littleEndian(piece == 9 ? 1 : 0, 4);
  }
  const std::string halves =
      safetensors(header + R"({"dtype":"F16","shape":[12,2],"data_offsets":[0,48]}})", half);
  std::string manyCars;
  for (int piece = 0; piece < 512; ++piece) manyCars += "car ";
  const struct {
    const char* name;
    std::string table;
    std::string text;
    Numbers vector;
  } rows[] = {
      {"F32", tinyTable(), "car garden cars", {2 / std::sqrt(40.0), 6 / std::sqrt(40.0)}},
      {"512 pieces", tinyTable(), manyCars + "garden", {1, 0}},
      {"F16", halves, "car", {1 / std::sqrt(5.0), -2 / std::sqrt(5.0)}},
      {"F16, subnormal", halves, "garden", {2 / std::sqrt(5.0), -1 / std::sqrt(5.0)}},
      {"I8 and weights",
       safetensors(header + R"({"dtype":"I8","shape":[12,2],"data_offsets":[0,24]},)"
                            R"("weights":{"dtype":"F32","shape":[12],"data_offsets":[24,72]}})",
                   eighth + weights),
       "garden car",
       {-1, 0}},
      {"mapping",
       safetensors(header + R"({"dtype":"F32","shape":[2,2],"data_offsets":[0,16]},)"
                            R"("mapping":{"dtype":"I32","shape":[12],"data_offsets":[16,64]}})",
                   float32s({1, 0, 0, 1}) + mapping),
       "garden car",
       {HALF, HALF}},
  };
  for (const auto& row : rows) {
    const auto read = StaticModel::fromFiles(tinyTokenizer(), bytes(row.table));
    const auto* model = std::get_if<StaticModel>(&read);
    ASSERT_NE(model, nullptr) << row.name << ": " << std::get<std::string>(read);
    const auto vector = model->vector(row.text);
    ASSERT_TRUE(vector) << row.name;
    for (std::size_t at : {0U, 1U}) EXPECT_NEAR((*vector)[at], row.vector[at], 1e-15) << row.name;
    EXPECT_FALSE(model->vector("unknown words")) << row.name;
  }
}

TEST(StaticModel, RefusesWhatItDoesNotKnow) {
  const std::string rows = float32s(std::vector<float>(24, 1));
  const auto table = [&](const std::string& members, const std::string& data) {
    return safetensors(
        R"({"embeddings":{"dtype":"F32","shape":[12,2],"data_offsets":[0,96]})" + members + "}",
        data);
  };
  const auto mapped = [&](int row) {
    return table(R"(,"mapping":{"dtype":"I32","shape":[12],"data_offsets":[96,144]})",
                 rows + littleEndian(static_cast<std::uint32_t>(row), 4) + std::string(44, '\0'));
  };
  const std::string huge = "18446744073709551615";
  const struct {
    std::string table;
    std::string tokenizer;
    std::string reason;  // a part of it
  } cases[] = {
      {tinyTable(), "[]", "no JSON object"},
      {tinyTable(), tinyTokenizer(R"({"type":"Sequence"})"), "normalizer Sequence"},
      {tinyTable(), tinyTokenizer("null", R"({"type":"Metaspace"})"), "pre-tokenizer Metaspace"},
      {tinyTable(), tinyTokenizer("null", "null"), "pre-tokenizer null"},
      {tinyTable(), tinyTokenizer("null", R"({"type":"BertPreTokenizer"})", "BPE"), "model BPE"},
      {tinyTable(), tinyTokenizer() + "x", "no JSON object"},
      {tinyTable(),
       [] {
         auto t = tinyTokenizer();
         return t.replace(t.find(":4,"), 2, ":3");
       }(),
       "one by one"},
      {tinyTable(),
       [] {
         auto t = tinyTokenizer();
         return t.replace(t.find(":11}"), 3, ":12");
       }(),
       "one by one"},
      {"", tinyTokenizer(), "damaged"},
      {littleEndian(~0ULL, 8) + "{}", tinyTokenizer(), "damaged"},
      {safetensors("{]", ""), tinyTokenizer(), "damaged"},
      {table(std::string(1 << 20, ' '), rows), tinyTokenizer(), "damaged"},
      {safetensors("{}", ""), tinyTokenizer(), "no table"},
      {table("", rows.substr(4)), tinyTokenizer(), "damaged"},
      {safetensors(
           R"({"embeddings":{"dtype":"F32","shape":[12,2],"data_offsets":[8,)" + huge + "]}}",
           rows),
       tinyTokenizer(), "damaged"},
      {safetensors(
           R"({"embeddings":{"dtype":"F32","shape":[4611686018427387904,4],"data_offsets":[0,0]}})",
           rows),
       tinyTokenizer(), "damaged"},
      {safetensors(R"({"embeddings":{"dtype":"F32","shape":[24],"data_offsets":[0,96]}})", rows),
       tinyTokenizer(), "rows of 1 to 1024"},
      {safetensors(R"({"embeddings":{"dtype":"F32","shape":[12,0],"data_offsets":[0,0]}})", rows),
       tinyTokenizer(), "rows of 1 to 1024"},
      {safetensors(R"({"embeddings":{"dtype":"I8","shape":[12,1025],"data_offsets":[0,12300]}})",
                   std::string(12'300, '1')),
       tinyTokenizer(), "rows of 1 to 1024"},
      {safetensors(R"({"embeddings":{"dtype":"F16","shape":[12,1],"data_offsets":[0,24]}})",
                   littleEndian(0x7C00, 2) + std::string(22, '1')),
       tinyTokenizer(), "no finite number"},
      {safetensors(R"({"embeddings":{"dtype":"F32","shape":[6,4],"data_offsets":[0,96]}})", rows),
       tinyTokenizer(), "12 pieces"},
      {safetensors(R"({"embeddings":{"dtype":"I32","shape":[12,2],"data_offsets":[0,96]}})", rows),
       tinyTokenizer(), "must be F32"},
      {table("", rows.substr(4) + float32s({NAN})), tinyTokenizer(), "no finite number"},
      {table(R"(,"weights":{"dtype":"F32","shape":[11],"data_offsets":[0,44]})", rows),
       tinyTokenizer(), "weights"},
      {table(R"(,"weights":{"dtype":"F32","shape":[12],"data_offsets":[96,144]})",
             rows + float32s({NAN}) + std::string(44, '1')),
       tinyTokenizer(), "weights"},
      {table(R"(,"mapping":{"dtype":"I32","shape":[12],"data_offsets":[0,48]})", rows),
       tinyTokenizer(), "mapping"},
      {mapped(12), tinyTokenizer(), "mapping"},
      {mapped(-1), tinyTokenizer(), "mapping"},
  };
  for (const auto& refused : cases) {
    const auto model = read(refused.table, refused.tokenizer);
    const auto* why = std::get_if<std::string>(&model);
    ASSERT_NE(why, nullptr) << refused.reason;
    EXPECT_NE(why->find(refused.reason), std::string::npos) << *why;
  }
}

}  // namespace
}  // namespace norvast
