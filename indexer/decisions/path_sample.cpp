#include "indexer/decisions/path_sample.h"

#include <algorithm>

namespace norvast::indexer {
namespace {

// Whoever wants all of them lists the folder.
constexpr std::size_t MOST_KEPT = 10;

}  // namespace

void PathSample::add(const std::string& path) {
  ++number_;
  const auto place = std::upper_bound(first_.begin(), first_.end(), path);
  if (first_.size() == MOST_KEPT && place == first_.end()) return;
  first_.insert(place, path);
  if (first_.size() > MOST_KEPT) first_.pop_back();
}

}  // namespace norvast::indexer
