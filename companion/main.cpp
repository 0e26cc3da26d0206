// norvast_index: fills and steers the index where the desktop app does not run.
#include <CLI/CLI.hpp>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "companion/index_database.h"
#include "companion/index_files.h"

namespace norvast {
namespace {

int fail(const std::string& why) {
  std::cerr << "norvast_index: " << why << "\n";
  return EXIT_FAILURE;
}

void print(const IndexingReport& report) {
  std::cout << "indexed " << report.indexed << ", unchanged " << report.unchanged << ", removed "
            << report.removed << ", nominated " << report.nominated << "\n";
  for (const std::string& folder : report.scan.unreadableFolders) {
    std::cout << "not readable: " << folder << "\n";
  }
  if (report.scan.unusableNames > 0) {
    std::cout << "left out for a name with a line break or invalid UTF-8: "
              << report.scan.unusableNames << "\n";
  }
}

int add(const std::vector<std::string>& paths, std::optional<Nomination> nomination) {
  std::vector<std::string> roots;
  for (const std::string& path : paths) {
    std::error_code failure;
    const std::filesystem::path root = std::filesystem::canonical(path, failure);
    if (failure) return fail(path + ": " + failure.message());
    roots.push_back(root.string());
  }
  auto index = openIndex();
  if (const auto* why = std::get_if<std::string>(&index)) return fail(*why);
  const IndexingReport report = indexFiles(std::get<Connection>(index), roots, nomination);
  print(report);
  if (!report.isComplete) return fail("the index could not be written to the end; run it again");
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace norvast

int main(int argc, char** argv) {
  using norvast::Nomination;
  CLI::App app("Fills the index that norvast_mcp answers from.", "norvast_index");
  app.require_subcommand(1);

  CLI::App* add = app.add_subcommand("add", "Index folders and files, and keep up with changes");
  std::vector<std::string> paths;
  add->add_option("PATH", paths, "Folders or files to index")->required();
  std::string nominate;
  add->add_option("--nominate", nominate, "Let AI clients see their metadata, or their content too")
      ->check(CLI::IsMember({"metadata", "content"}));
  add->footer("Example: norvast_index add --nominate content ~/Documents");

  CLI11_PARSE(app, argc, argv);
  std::optional<Nomination> nomination;
  if (nominate == "metadata") nomination = Nomination::metadata;
  if (nominate == "content") nomination = Nomination::content;
  return norvast::add(paths, nomination);
}
