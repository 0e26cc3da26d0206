#include "indexer/indexing/reading_order.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

#include "text/file_name.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t SAMPLED_OF = 10;
constexpr std::size_t LEAST_SAMPLED = 8;

using Kind = std::pair<FileKind::Way, std::string_view>;

// The places of a list so that those of every beginning lie evenly over all of it: by the bits of
// their numbers in reverse (https://en.wikipedia.org/wiki/Van_der_Corput_sequence).
std::vector<std::size_t> spreadPlaces(std::size_t count) {
  const std::size_t end = std::bit_ceil(count);
  std::vector<std::size_t> places;
  for (std::size_t number = 0, place = 0; number < end; ++number) {
    if (place < count) places.push_back(place);
    std::size_t bit = end / 2;  // adds 1 at the other end
    for (; (place & bit) != 0; bit /= 2) place &= ~bit;
    place |= bit;
  }
  return places;
}

void spread(std::vector<ScannedFile>& files, const std::vector<std::size_t>& ofKind) {
  std::vector<ScannedFile> spread;
  for (const std::size_t place : spreadPlaces(ofKind.size())) {
    spread.push_back(std::move(files[ofKind[place]]));
  }
  for (std::size_t at = 0; at < ofKind.size(); ++at) files[ofKind[at]] = std::move(spread[at]);
}

// A file of the sample, and how far it is among all files of its kind, from 0 to 1.
struct Sampled {
  double place;
  std::size_t at;
};

std::vector<Sampled> sampleOf(const std::vector<std::size_t>& ofKind) {
  const std::size_t all = ofKind.size();
  const std::size_t count = std::min(all, std::max(all / SAMPLED_OF, LEAST_SAMPLED));
  std::vector<Sampled> sample;
  for (std::size_t number = 0; number < count; ++number) {
    const std::size_t place = (2 * number + 1) * all / (2 * count);
    sample.push_back({static_cast<double>(number) / static_cast<double>(count), ofKind[place]});
  }
  return sample;
}

}  // namespace

FileKind expectedKind(const ScannedFile& file) { return fileKind(fileExtension(file.path), {}); }

void putSampleFirst(std::vector<ScannedFile>& files) {
  std::map<Kind, std::vector<std::size_t>> kinds;
  for (std::size_t at = 0; at < files.size(); ++at) {
    const FileKind kind = expectedKind(files[at]);
    kinds[{kind.way, kind.kind}].push_back(at);
  }
  std::vector<Sampled> sample;
  for (const auto& [kind, ofKind] : kinds) {
    if (kind.first != FileKind::Way::text) spread(files, ofKind);
    const std::vector<Sampled> some = sampleOf(ofKind);
    sample.insert(sample.end(), some.begin(), some.end());
  }
  std::stable_sort(sample.begin(), sample.end(), [](const Sampled& one, const Sampled& other) {
    return one.place < other.place;
  });

  std::vector<ScannedFile> ordered;
  std::vector<bool> isSampled(files.size());
  ordered.reserve(files.size());
  for (const Sampled& one : sample) {
    isSampled[one.at] = true;
    ordered.push_back(std::move(files[one.at]));
  }
  for (std::size_t at = 0; at < files.size(); ++at) {
    if (!isSampled[at]) ordered.push_back(std::move(files[at]));
  }
  files = std::move(ordered);
}

}  // namespace norvast::indexer
