// File view: what the index holds of one file, for people who wonder, and for scripts.
#pragma once

#include <string>

#include "indexer/indexing/file_description.h"
#include "json/json.h"

namespace norvast::indexer {

// A table of what is known of the file, what its text became, with the beginnings of the first
// passages, and what AI clients may see of it, each text on one line and free of control
// characters.
std::string fileView(const FileDescription& file);

// The same with all passages whole.
Json fileJson(const FileDescription& file);

}  // namespace norvast::indexer
