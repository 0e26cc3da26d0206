// Sensitive paths: locations that hold secrets. Their files are neither described nor read by path,
// even when the user has nominated them, and the indexer passes them over.
#pragma once

#include <array>
#include <string_view>

namespace norvast {

inline constexpr std::array<std::string_view, 8> denyPatterns = {
    "/.ssh",           "/Library/Keychains",
    "/.env",           "/.aws",
    "/.gnupg",         "Application Support/Google/Chrome",
    "/.config/gcloud", "/.netrc",
};

// True when one of the patterns occurs anywhere in `path`, byte for byte: no case folding, no
// normalisation, no component boundaries. /home/u/.sshkeys/x is sensitive, /home/u/.SSH/x is not.
bool isSensitive(std::string_view path);

}  // namespace norvast
