// Folders and files as the platform's file manager knows them.
#pragma once

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

// As `fileExists`, and it is a regular file or a symbolic link to one.
bool regularFileExists(const std::string& path);

}  // namespace norvast
