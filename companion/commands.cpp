#include "companion/commands.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <system_error>
#include <thread>
#include <variant>

#include "access/switch_files.h"
#include "companion/audit_view.h"
#include "companion/index_database.h"
#include "companion/index_files.h"
#include "companion/index_status.h"
#include "companion/path_range.h"
#include "companion/terminal.h"
#include "json/json_writer.h"
#include "platform/folders.h"
#include "platform/installed_program.h"
#include "store/mcp_store.h"

namespace norvast {
namespace {

constexpr auto BETWEEN_LOOKS = std::chrono::milliseconds(300);

// Of the paths listed below a report, the rest only counted.
constexpr std::size_t MOST_LISTED = 10;

ExitStatus fail(const std::string& why) {
  std::cerr << "norvast_index: " << printable(why) << "\n";
  return ExitStatus::failed;
}

ExitStatus failWithoutIndex() {
  return fail("there is no index yet; make one with: norvast_index add FOLDER");
}

std::string count(std::uint64_t number, const std::string& noun) {
  return grouped(number) + " " + noun + (number == 1 ? "" : "s");
}

void printRow(const std::string& name, std::uint64_t number) {
  const std::string digits = grouped(number);
  std::cout << name << std::string(16 - name.size(), ' ')
            << std::string(digits.size() < 9 ? 9 - digits.size() : 0, ' ') << digits << "\n";
}

void printPaths(const std::string& what, const std::vector<std::string>& paths) {
  for (std::size_t at = 0; at < std::min(paths.size(), MOST_LISTED); ++at) {
    std::cout << what << ": " << printable(paths[at]) << "\n";
  }
  if (paths.size() > MOST_LISTED) {
    std::cout << what << ": and " << grouped(paths.size() - MOST_LISTED) << " more\n";
  }
}

void print(const IndexingReport& report, std::optional<Nomination> nomination) {
  printRow("indexed", report.indexed);
  printRow("unchanged", report.unchanged);
  printRow("removed", report.removed);
  printRow("without text", report.withoutText);
  printRow("failed", report.unreadableFiles.size() + report.scan.unreadableFolders.size() +
                         report.scan.unusableNames);
  if (nomination) printRow("nominated", report.nominated);
  printPaths("no permission to read", report.unreadableFiles);
  printPaths("no permission to open", report.scan.unreadableFolders);
  if (report.scan.unusableNames > 0) {
    std::cout << "left out: " << count(report.scan.unusableNames, "name")
              << " with a line break or invalid UTF-8\n";
  }
  if (report.scan.sensitivePaths > 0) {
    std::cout << "left out: " << count(report.scan.sensitivePaths, "sensitive path") << "\n";
  }
}

bool hasGaps(const IndexingReport& report) {
  return !report.unreadableFiles.empty() || !report.scan.unreadableFolders.empty() ||
         report.scan.unusableNames > 0;
}

// An index that is there already, open for writing; else what to tell the user.
std::variant<Connection, std::string> existingIndex() {
  if (!MCPStore::open()) {
    return "there is no index yet; make one with: norvast_index add FOLDER";
  }
  return openIndex();
}

// Does `change` for each path and says how many files it concerned.
ExitStatus changeEach(
    const std::vector<std::string>& paths, const char* done,
    const std::function<std::optional<std::uint64_t>(const Connection&, const std::string&)>&
        change) {
  auto index = existingIndex();
  if (const auto* why = std::get_if<std::string>(&index)) return fail(*why);
  ExitStatus status = ExitStatus::done;
  for (const std::string& path : paths) {
    const auto known = indexedPath(path);
    const auto files = known ? change(std::get<Connection>(index), *known) : std::nullopt;
    if (!files)
      return fail("the index could not be written; try again when no other program holds it");
    if (*files == 0) {
      status = fail(path + ": no file there that could be " + done);
    } else {
      std::cout << done << " " << count(*files, "file") << ": " << printable(*known) << "\n";
    }
  }
  return status;
}

// Each place once: roots that lie at or below another one are left out.
std::vector<std::string> withoutNested(std::vector<std::string> roots) {
  std::sort(roots.begin(), roots.end());  // a folder before what is below it
  std::vector<std::string> outer;
  for (std::string& root : roots) {
    const bool isNested = std::any_of(outer.begin(), outer.end(), [&root](const auto& folder) {
      return PathRange(folder).contains(root);
    });
    if (!isNested) outer.push_back(std::move(root));
  }
  return outer;
}

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

ExitStatus addCommand(const std::vector<std::string>& paths, std::optional<Nomination> nomination,
                      Verbosity verbosity) {
  std::vector<std::string> roots;
  for (const std::string& path : paths) {
    std::error_code failure;
    const std::filesystem::path root = std::filesystem::canonical(path, failure);
    if (failure) return fail(path + ": " + failure.message());
    roots.push_back(root.string());
  }
  roots = withoutNested(std::move(roots));
  auto index = openIndex();
  if (const auto* why = std::get_if<std::string>(&index)) return fail(*why);

  const bool isQuiet = verbosity == Verbosity::quiet;
  const IndexingReport report =
      indexFiles(std::get<Connection>(index), roots, {nomination, isQuiet});
  if (!isQuiet) print(report, nomination);
  if (!report.isComplete) {
    return fail(
        "the index could not be written to the end: see whether the disk is full or another "
        "program holds the index, then run this again");
  }
  return hasGaps(report) ? ExitStatus::incomplete : ExitStatus::done;
}

ExitStatus nominateCommand(const std::vector<std::string>& paths, Nomination nomination) {
  return changeEach(paths, "nominated",
                    [nomination](const Connection& index, const std::string& path) {
                      return nominate(index, path, nomination);
                    });
}

ExitStatus withdrawCommand(const std::vector<std::string>& paths) {
  return changeEach(paths, "withdrawn", withdraw);
}

ExitStatus removeCommand(const std::vector<std::string>& paths) {
  return changeEach(paths, "removed", removeFromIndex);
}

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

ExitStatus statusCommand() {
  const auto text = statusText();
  if (!text) return failWithoutIndex();
  std::cout << *text;
  return ExitStatus::done;
}

ExitStatus auditCommand(std::uint64_t last, Follow follow) {
  const auto store = MCPStore::open();
  if (!store) return failWithoutIndex();
  std::vector<TrailRow> rows = lastEvents(*store, last);
  if (rows.empty() && follow == Follow::no) std::cout << "no events\n";
  std::int64_t number = store->scalar("SELECT MAX(rowid) FROM audit_event");
  for (;;) {
    for (const TrailRow& row : rows) std::cout << row.line << "\n";
    std::cout.flush();
    if (!rows.empty()) number = rows.back().number;
    if (follow == Follow::no || !std::cout) return ExitStatus::done;
    std::this_thread::sleep_for(BETWEEN_LOOKS);
    rows = eventsAfter(*store, number);
  }
}

ExitStatus clientConfigCommand() {
  const auto server = installedProgram("norvast_mcp");
  if (!server) return fail("norvast_mcp is not installed beside this program");
  const Json config =
      Json::Object{{"mcpServers", Json::Object{{"norvast", Json::Object{{"command", *server}}}}}};
  std::string text = writeJson(config, JsonStyle::pretty).value_or("");
  // A person copies this: the escape that JSON allows for a solidus only makes paths hard to read.
  for (std::size_t at = text.find("\\/"); at != std::string::npos; at = text.find("\\/", at)) {
    text.erase(at, 1);
  }
  std::cout << text << "\n";
  return ExitStatus::done;
}

}  // namespace norvast
