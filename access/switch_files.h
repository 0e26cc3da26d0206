// Switch files: the two marker files by which the user turns AI access off and whole-library
// access on. Only their existence counts; it is tested afresh at every use.
#pragma once

#include <optional>
#include <string>

namespace norvast {

// AI access is off while this file exists.
struct MCPGate {
  // Norvast/mcp.disabled under Application Support, or nothing when the user has no such directory.
  static std::optional<std::string> sentinel();
};

// Whole-library access is on while this file exists.
struct LibraryGate {
  // Norvast/mcp.librarymeta under Application Support, or nothing as above.
  static std::optional<std::string> sentinel();
};

// Whether the file exists now: a file or directory of any content, or a link to one. False when
// there is no path or that cannot be determined.
bool isAccessOff();
bool isLibraryOn();

}  // namespace norvast
