// Folders and files as the platform's file manager knows them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace norvast {

// The user's Application Support directory: Library/Application Support under the home directory,
// which is $HOME when that is an absolute path and else the account database's. Absolute, without
// a trailing solidus; not tested for existence. Nothing when there is no home directory.
std::optional<std::string> applicationSupportDirectory();

// True when something exists at `path`: a file, a directory, or a symbolic link whose target
// exists. False when that cannot be determined.
bool fileExists(const std::string& path);

// What changes with every change of a file, so that equal ones mean the same content.
struct FileVersion {
  std::uint64_t device = 0;
  std::uint64_t number = 0;  // on its device
  std::int64_t sizeBytes = 0;
  std::int64_t changedSeconds = 0;
  std::int64_t changedNanoseconds = 0;

  bool operator==(const FileVersion&) const = default;
};

// Of what is at `path`, following symbolic links; nothing when that cannot be determined.
std::optional<FileVersion> fileVersion(const std::string& path);

// As `fileExists`, and it is a regular file or a symbolic link to one.
bool regularFileExists(const std::string& path);

}  // namespace norvast
