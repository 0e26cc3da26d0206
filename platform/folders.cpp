#include "platform/folders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace norvast {
namespace {

constexpr std::size_t MOST_ACCOUNT_BYTES = std::size_t{1} << 20;

std::optional<std::string> accountHome() {
  std::vector<char> buffer(1024);
  passwd account{};
  passwd* found = nullptr;
  while (getpwuid_r(getuid(), &account, buffer.data(), buffer.size(), &found) == ERANGE) {
    if (buffer.size() >= MOST_ACCOUNT_BYTES) return std::nullopt;
    buffer.resize(buffer.size() * 2);
  }
  if (found == nullptr || found->pw_dir == nullptr || found->pw_dir[0] != '/') return std::nullopt;
  return found->pw_dir;
}

std::optional<std::string> homeDirectory() {
  const char* home = std::getenv("HOME");
  if (home != nullptr && home[0] == '/') return home;
  return accountHome();
}

}  // namespace

std::optional<std::string> applicationSupportDirectory() {
  const auto home = homeDirectory();
  if (!home) return std::nullopt;
  return (std::filesystem::path(*home) / "Library" / "Application Support").string();
}

bool fileExists(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0;
}

std::optional<FileVersion> fileVersion(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileVersion{status.st_dev, status.st_ino, status.st_size, status.st_ctim.tv_sec,
                     status.st_ctim.tv_nsec};
}

bool regularFileExists(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace norvast
