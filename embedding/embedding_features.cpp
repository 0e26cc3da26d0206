#include "embedding/embedding_features.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace norvast {
namespace {

constexpr double GRAMS_WEIGHT = 1.3;
constexpr std::size_t FEWEST_CHARACTERS_WITH_GRAMS = 3;
constexpr std::uint64_t PLACES = 512;

// Fowler, Noll and Vo, FNV-1a with 64 bits.
std::uint64_t fnv1a(std::uint64_t hash, std::string_view bytes) {
  for (const char byte : bytes) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  return hash;
}

// Austin Appleby, MurmurHash3, fmix64.
std::uint64_t finalise(std::uint64_t hash) {
  hash = (hash ^ (hash >> 33)) * 0xFF51AFD7ED558CCDU;
  hash = (hash ^ (hash >> 33)) * 0xC4CEB9FE1A85EC53U;
  return hash ^ (hash >> 33);
}

// Sebastiano Vigna, SplitMix64.
std::uint64_t draw(std::uint64_t& state) {
  state += 0x9E3779B97F4A7C15U;
  std::uint64_t mixed = state;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
  return mixed ^ (mixed >> 31);
}

Feature feature(std::string_view kind, std::string_view bytes) {
  constexpr std::uint64_t FNV_OFFSET = 0xCBF29CE484222325U;
  std::uint64_t state = finalise(fnv1a(fnv1a(FNV_OFFSET, kind), bytes));
  Feature feature;
  for (std::int16_t& place : feature.places) {
    const std::uint64_t drawn = draw(state);
    place = static_cast<std::int16_t>(drawn % PLACES + 1);
    if ((drawn >> 63) != 0) place = static_cast<std::int16_t>(-place);
  }
  return feature;
}

// The signs are drawn by lot, so that a branch on them would be foreseen half of the time.
void add(const Feature& feature, double weight, std::span<double> sum) {
  const std::array<double, 2> shares = {weight / 2, -weight / 2};
  for (const std::int16_t place : feature.places) {
    sum[static_cast<std::size_t>(std::abs(place) - 1)] += shares[place < 0 ? 1 : 0];
  }
}

// Where the characters of a UTF-8 text begin, and its end.
std::vector<std::size_t> characterStarts(std::string_view text) {
  std::vector<std::size_t> starts;
  starts.reserve(text.size() + 1);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) starts.push_back(at);
  }
  starts.push_back(text.size());
  return starts;
}

// Its first bytes as a number tell nearly all grams apart, and their order, with one comparison.
struct Gram {
  explicit Gram(std::string_view gram) : bytes(gram) {
    for (std::size_t at = 0; at < sizeof leading; ++at) {
      leading = leading << 8U | (at < gram.size() ? static_cast<unsigned char>(gram[at]) : 0U);
    }
  }

  auto operator<=>(const Gram&) const = default;

  std::uint64_t leading = 0;
  std::string_view bytes;
};

// The distinct grams of a word between its marks, ascending.
std::vector<Feature> gramsOf(std::string_view marked, const std::vector<std::size_t>& starts) {
  std::vector<Gram> all;
  all.reserve(2 * starts.size());
  for (const std::size_t length : {std::size_t{3}, std::size_t{4}}) {
    for (std::size_t first = 0; first + length < starts.size(); ++first) {
      all.emplace_back(marked.substr(starts[first], starts[first + length] - starts[first]));
    }
  }
  std::sort(all.begin(), all.end());
  std::vector<Feature> grams;
  grams.reserve(all.size());
  for (std::size_t at = 0; at < all.size(); ++at) {
    if (at > 0 && all[at] == all[at - 1]) {
      grams.back().count += 1;
    } else {
      grams.push_back(feature("g:", all[at].bytes));
    }
  }
  return grams;
}

}  // namespace

WordFeatures featuresOf(std::string_view word, std::string_view stem) {
  WordFeatures features;
  features.stem = feature("s:", stem);

  const std::string marked = "<" + std::string(word) + ">";
  const std::vector<std::size_t> starts = characterStarts(marked);
  const std::size_t characters = starts.size() - 3;  // without the marks and the end
  if (characters < FEWEST_CHARACTERS_WITH_GRAMS) return features;

  features.grams = gramsOf(marked, starts);
  double squares = 0;
  for (const Feature& gram : features.grams) squares += gram.count * gram.count;
  features.gramsNorm = std::sqrt(squares);
  return features;
}

void addFeatures(const WordFeatures& features, double weight, std::span<double> sum) {
  add(features.stem, weight, sum);
  if (features.grams.empty()) return;
  const double share = GRAMS_WEIGHT * weight / features.gramsNorm;
  for (const Feature& gram : features.grams) add(gram, gram.count * share, sum);
}

}  // namespace norvast
