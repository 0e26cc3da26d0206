// Process status: what the kernel tells of a running process.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace norvast {

// What stands behind `name` and a colon in /proc/PID/status. Empty when there is no such process.
inline std::string statusOf(pid_t process, const std::string& name) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (!line.starts_with(name + ":")) continue;
    const std::size_t start = line.find_first_not_of(" \t", name.size() + 1);
    return start == std::string::npos ? "" : line.substr(start);
  }
  return {};
}

inline long residentKilobytes(pid_t process) { return std::stol(statusOf(process, "VmRSS")); }

// Zombies are among them.
inline std::vector<pid_t> childrenOf(pid_t process) {
  const std::string id = std::to_string(process);
  std::ifstream children("/proc/" + id + "/task/" + id + "/children");
  return {std::istream_iterator<pid_t>(children), {}};
}

inline std::ptrdiff_t openDescriptors(pid_t process) {
  const std::filesystem::directory_iterator all("/proc/" + std::to_string(process) + "/fd");
  return std::distance(begin(all), end(all));
}

}  // namespace norvast
