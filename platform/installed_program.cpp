#include "platform/installed_program.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace norvast {

std::optional<std::string> installedProgram(const std::string& name) {
  std::error_code failure;
  const auto running = std::filesystem::read_symlink("/proc/self/exe", failure);
  if (failure) return std::nullopt;
  const auto folder = running.parent_path();
  for (const auto& candidate :
       {folder / name, folder.parent_path() / "libexec" / "norvast" / name}) {
    if (access(candidate.c_str(), X_OK) == 0) return candidate.string();
  }
  return std::nullopt;
}

}  // namespace norvast
