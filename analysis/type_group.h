// Type group: the kind of a file as people speak of it, by its extension.
#pragma once

#include <string_view>

namespace norvast {

// "Documents", "Images", ... for a lower-case extension without its dot; empty for one that is in
// no group.
std::string_view typeGroup(std::string_view extension);

}  // namespace norvast
