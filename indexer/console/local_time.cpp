#include "indexer/console/local_time.h"

#include <array>
#include <ctime>

namespace norvast::indexer {

std::string localTime(std::int64_t secondsSince1970, const char* format) {
  const auto time = static_cast<std::time_t>(secondsSince1970);
  std::tm local{};
  std::array<char, 32> text{};
  if (localtime_r(&time, &local) == nullptr) return "?";
  return {text.data(), std::strftime(text.data(), text.size(), format, &local)};
}

}  // namespace norvast::indexer
