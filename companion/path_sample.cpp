#include "companion/path_sample.h"

#include <algorithm>

#include "companion/terminal.h"

namespace norvast {
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

std::string PathSample::text() const {
  std::string text;
  for (const std::string& path : first_) text += "  " + printable(path) + "\n";
  if (number_ > first_.size()) text += "  and " + grouped(number_ - first_.size()) + " more\n";
  return text;
}

}  // namespace norvast
