#include "access/switch_files.h"

#include "platform/folders.h"

namespace norvast {
namespace {

std::optional<std::string> supportFile(const std::string& relativePath) {
  const auto support = applicationSupportDirectory();
  if (!support) return std::nullopt;
  return *support + "/" + relativePath;
}

bool exists(const std::optional<std::string>& path) { return path && fileExists(*path); }

}  // namespace

std::optional<std::string> MCPGate::sentinel() { return supportFile("Norvast/mcp.disabled"); }

std::optional<std::string> LibraryGate::sentinel() {
  return supportFile("Norvast/mcp.librarymeta");
}

bool isAccessOff() { return exists(MCPGate::sentinel()); }

bool isLibraryOn() { return exists(LibraryGate::sentinel()); }

}  // namespace norvast
