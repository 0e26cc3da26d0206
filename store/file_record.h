// File record: the public description of one indexed file.
#pragma once

#include <string>
#include <vector>

#include "json/json.h"

namespace norvast {

// The record of one row whose first six columns are path, name, ext, grp, size and modified as
// text; further ones are ignored, and missing ones behind the third count as empty. "path", "name"
// and "ext" are always there; "type_group" when grp is not empty; "size_bytes" (a number) and
// "modified" (a UTC date-time text) when their columns are decimal integers.
Json::Object fileDict(const std::vector<std::string>& row);

}  // namespace norvast
