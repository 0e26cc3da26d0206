#include "indexer/indexing/cache_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <string_view>

#include "platform/descriptor.h"

namespace norvast::indexer {
namespace {

constexpr std::string_view SIGNATURE = "Signature: 8a477f597d28d172789f06886806bc55";

}  // namespace

bool isCacheFolder(const std::string& folder) {
  const std::string path = folder + "/CACHEDIR.TAG";
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  const Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  std::array<char, SIGNATURE.size()> begin{};
  const auto length = file ? file.read(begin) : std::nullopt;
  return length && std::string_view(begin.data(), *length) == SIGNATURE;
}

}  // namespace norvast::indexer
