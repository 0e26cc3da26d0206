// Cache folder: one whose maker marked it as holding nothing but what can be made again
// (https://bford.info/cachedir/).
#pragma once

#include <string>

namespace norvast::indexer {

// Whether the folder holds a file CACHEDIR.TAG, no link, that begins with the signature.
bool isCacheFolder(const std::string& folder);

}  // namespace norvast::indexer
