#include "extractor/program/lock_in.h"

#include "extractor/program/file_confinement.h"
#include "extractor/program/process_limits.h"
#include "extractor/program/system_call_filter.h"

namespace norvast::extractor {
namespace {

// A page of 45 megapixels needs less than 512 MB with its recognition; an image bomb of 60,000 x
// 60,000 pixels of one bit would need 884 MB.
#ifdef NORVAST_SANITIZED
constexpr std::uint64_t ADDRESS_SPACE_BYTES = 0;  // shadow memory takes terabytes of it
#else
constexpr std::uint64_t ADDRESS_SPACE_BYTES = std::uint64_t{768} << 20;
#endif

// What a program could use at the most before the deadline of who waits for it.
constexpr std::uint64_t CPU_SECONDS = 25;

}  // namespace

bool limitExtractor(const Descriptor& output) {
  return limitProcess({ADDRESS_SPACE_BYTES, CPU_SECONDS}) && dieWithParent(output);
}

std::optional<LockState> lockIn(std::span<const std::string_view> readableFolders) {
  if (!forgoNewPrivileges()) return std::nullopt;
  const Confinement files = confineFiles(readableFolders);
  const bool areConfined = files == Confinement::complete;
  // Without Landlock the filter alone could not tell one file from another.
  if (!areConfined && !forgoOpening()) return std::nullopt;
  const bool mayOpen = areConfined && !readableFolders.empty();
  switch (filterSystemCalls(mayOpen ? Opening::forReading : Opening::nothing)) {
    case Filtering::refused:
      return std::nullopt;
    case Filtering::unknown:
      return LockState::seccompUnknown;
    case Filtering::complete:
      break;
  }
  if (areConfined) return LockState::whole;
  return files == Confinement::unknown ? LockState::landlockUnknown : LockState::landlockRefused;
}

}  // namespace norvast::extractor
