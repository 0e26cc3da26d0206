#include "indexer/commands/commands.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <thread>
#include <utility>

#include "access/switch_files.h"
#include "indexer/commands/client_config.h"
#include "indexer/console/audit_view.h"
#include "indexer/console/command_output.h"
#include "indexer/console/file_view.h"
#include "indexer/console/index_status_view.h"
#include "indexer/console/json_output.h"
#include "indexer/decisions/path_range.h"
#include "indexer/index/index_database.h"
#include "indexer/indexing/failures.h"
#include "platform/folders.h"
#include "platform/installed_program.h"
#include "store/mcp_store.h"

namespace norvast::indexer {
namespace {

constexpr auto BETWEEN_LOOKS = std::chrono::milliseconds(300);

ExitStatus setSwitchFile(const std::optional<std::string>& path, bool exists) {
  if (!path) return fail("there is no home folder; set HOME");
  std::error_code failure;
  if (exists) {
    std::filesystem::create_directories(std::filesystem::path(*path).parent_path(), failure);
    if (!fileExists(*path)) std::ofstream(*path) << "";
  } else {
    std::filesystem::remove(*path, failure);
  }
  if (fileExists(*path) != exists)
    return fail("cannot change " + *path + ": check its permissions");
  return ExitStatus::done;
}

}  // namespace

ExitStatus accessCommand(Switch position) {
  const ExitStatus status = setSwitchFile(MCPGate::sentinel(), position == Switch::off);
  if (status == ExitStatus::done) {
    std::cout << "AI access is " << (position == Switch::on ? "on" : "off") << "\n";
  }
  return status;
}

ExitStatus libraryCommand(Switch position) {
  const ExitStatus status = setSwitchFile(LibraryGate::sentinel(), position == Switch::on);
  if (status == ExitStatus::done) {
    std::cout << "whole-library access is " << (position == Switch::on ? "on" : "off") << "\n";
  }
  return status;
}

ExitStatus statusCommand(Form form) {
  const auto store = MCPStore::open();
  if (!store) return failWithoutIndex();
  store->limitTime();
  if (const auto why = objectionToIndex()) return fail(*why);
  const auto status = indexStatus(*store);
  if (!status) return failToRead(store->rdb);
  std::cout << (form == Form::json ? jsonText(statusJson(*status)) : statusText(*status));
  return ExitStatus::done;
}

ExitStatus showCommand(const std::vector<std::string>& paths, Form form) {
  const auto store = MCPStore::open();
  if (!store) return failWithoutIndex();
  store->limitTime();
  ExitStatus status = ExitStatus::done;
  Json::Array files;
  for (const std::string& path : paths) {
    const auto known = indexedPath(path);
    const auto file = known ? describedFile(*store, *known) : std::nullopt;
    if (known && !file && store->rdb.hasFailed()) return failToRead(store->rdb);
    if (!file) {
      status = fail(path + ": no such file is indexed");
    } else if (form == Form::json) {
      files.push_back(fileJson(*file));
    } else {
      std::cout << fileView(*file);
    }
  }
  if (form == Form::json) std::cout << jsonText(files);
  return status;
}

ExitStatus withoutTextCommand(const std::vector<std::string>& paths, Form form) {
  const auto store = MCPStore::open();
  if (!store) return failWithoutIndex();
  store->limitTime();
  if (const auto why = objectionToIndex()) return fail(*why);
  const std::string named = paths.empty() ? "/" : paths.front();
  const auto path = indexedPath(named);
  if (!path) return fail(named + ": it cannot be told where that is");
  const auto files = failedFiles(store->rdb, *path);
  if (!files) return failToRead(store->rdb);
  if (!paths.empty() && !hasIndexedFile(store->rdb, *path)) {
    if (store->rdb.hasFailed()) return failToRead(store->rdb);
    return fail(named + ": nothing is indexed there");
  }
  std::cout << (form == Form::json ? jsonText(withoutTextJson(*files)) : withoutTextList(*files));
  return ExitStatus::done;
}

ExitStatus auditCommand(std::uint64_t last, Follow follow, Form form) {
  const auto store = MCPStore::open();
  if (!store) return failWithoutIndex();
  if (follow == Follow::no) store->limitTime();
  auto events = lastEvents(*store, last);
  if (!events) return failToRead(store->rdb);
  if (events->empty() && follow == Follow::no && form == Form::text) std::cout << "no events\n";
  std::int64_t number = store->scalar("SELECT MAX(rowid) FROM audit_event");
  for (;;) {
    if (!events) return failToRead(store->rdb);
    for (const TrailEvent& event : *events) {
      std::cout << (form == Form::json ? eventJson(event) : eventLine(event));
    }
    std::cout.flush();
    if (!events->empty()) number = events->back().number;
    if (follow == Follow::no || !std::cout) return ExitStatus::done;
    std::this_thread::sleep_for(BETWEEN_LOOKS);
    events = eventsAfter(*store, number);
    if (!events && store->rdb.isHeldElsewhere()) events.emplace();  // and looks again
  }
}

ExitStatus clientConfigCommand(const std::string& client) {
  const auto server = installedProgram("norvast_mcp");
  if (!server) return fail("norvast_mcp is not installed beside this program");
  const auto config = clientConfig(client, *server);
  if (!config) return fail("no client is known as " + client);
  std::cout << config->text;
  if (!config->place.empty()) std::cerr << "for " << config->place << "\n";
  return ExitStatus::done;
}

}  // namespace norvast::indexer
