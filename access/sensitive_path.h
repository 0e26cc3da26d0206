// Sensitive paths: locations that hold secrets. They are never described or read, even when the
// user has nominated them.
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
