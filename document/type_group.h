// Type group: the kind of a file as people speak of it, by its extension or its first bytes.
#pragma once

#include <string_view>

namespace norvast {

// "Documents", "Images", ... for a lower-case extension without its dot; empty for one that is in
// no group.
std::string_view typeGroup(std::string_view extension);

// For a file that no reader knows by its content: by the mark that its format begins with; empty
// for bytes that tell nothing. 512 bytes are enough. Nothing is decoded, so that a stranger's bytes
// can do no harm here.
std::string_view typeGroupOfContent(std::string_view leadingBytes);

}  // namespace norvast
