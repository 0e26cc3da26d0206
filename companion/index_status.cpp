#include "companion/index_status.h"

#include <cstdint>
#include <filesystem>
#include <system_error>

#include "access/switch_files.h"
#include "companion/terminal.h"
#include "store/mcp_store.h"
#include "store/settings.h"

namespace norvast {
namespace {

std::uint64_t fileBytes(const std::string& path) {
  std::error_code missing;
  const std::uintmax_t size = std::filesystem::file_size(path, missing);
  return missing ? 0 : size;
}

std::string megabytes(std::uint64_t bytes) {
  const std::uint64_t tenths = (bytes * 10 + 500'000) / 1'000'000;
  return grouped(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

std::string row(const std::string& name, const std::string& value) {
  return name + std::string(name.size() < 22 ? 22 - name.size() : 1, ' ') + value + "\n";
}

}  // namespace

std::optional<std::string> statusText() {
  const auto path = indexDatabasePath();
  const auto store = MCPStore::open();
  if (!path || !store) return std::nullopt;

  const auto count = [&store](const char* sql) {
    return grouped(static_cast<std::uint64_t>(store->scalar(sql)));
  };
  return row("index", *path) +
         row("size", megabytes(fileBytes(*path) + fileBytes(*path + "-wal"))) +
         row("files", count("SELECT COUNT(*) FROM file")) +
         row("  with a summary", count("SELECT COUNT(*) FROM analysis")) +
         row("  passages", count("SELECT COUNT(*) FROM chunk")) +
         row("  embedded by",
             setting(store->rdb, EMBEDDING_SCHEME_SETTING).value_or("nothing yet")) +
         row("nominated", count("SELECT COUNT(*) FROM mcp_exposure")) +
         row("  with their content",
             count("SELECT COUNT(*) FROM mcp_exposure WHERE allow_content = 1")) +
         row("audit events", count("SELECT COUNT(*) FROM audit_event")) +
         row("AI access", isAccessOff() ? coloured("off", Colour::yellow) : "on") +
         row("whole library", isLibraryOn() ? coloured("on", Colour::yellow) : "off");
}

}  // namespace norvast
