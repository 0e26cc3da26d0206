// The text of a file: which way its extension leads, plain text, and files that are none.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include "content/mcp_content.h"
#include "platform/descriptor.h"
#include "platform/regular_file.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"
#include "text/file_name.h"

namespace norvast {
namespace {

TEST(PathExtension, IsWhatFollowsTheLastDotOfTheLastComponent) {
  const struct {
    const char* path;
    const char* extension;
  } rows[] = {
      {"/a/report.pdf", "pdf"},
      {"/a/report.PDF", "pdf"},
      {"/a/archive.tar.gz", "gz"},
      {"/a.b/.bashrc", "bashrc"},
      {"/a/dir.pdf/", "pdf"},
      {"/a/Übersicht.TÄX", "tÄx"},
      {"/a.pdf/report", ""},
      {"/a/name.", ""},
      {"/", ""},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(pathExtension(row.path), row.extension) << row.path;
}

TEST(PlainText, IsTheLeadingBytesWhenTheyAreUtf8) {
  const std::string nothing;
  const std::string many(100'000, 'x');
  const struct {
    std::string bytes;
    std::int64_t limit;
    std::string text;  // empty: nothing
  } rows[] = {
      {"plain\n", 60'000, "plain\n"},
      {many, 60'000, many.substr(0, 60'000)},
      {many.substr(0, 60'000), 60'000, many.substr(0, 60'000)},
      {std::string("a\0b", 3), 60'000, std::string("a\0b", 3)},
      {"\xEF\xBB\xBFmarked", 60'000, "\xEF\xBB\xBFmarked"},
      {"häuser", 2, "h"},
      {"h€", 3, "h"},
      {"h\xF0\x9F\x98\x80", 4, "h"},
      {"h\xF0\x9F\x98\x80", 5, "h\xF0\x9F\x98\x80"},
      {"", 60'000, nothing},
      {"ä", 1, nothing},
      {"häuser", -1, nothing},
      {"h\xC3", 60'000, nothing},  // cut, but not by the limit
      {"h\xC3", 2, nothing},       // the file ends where the limit is
      {"h\xE2\x28\xA1", 60'000, nothing},
      {"h\xFF more", 2, nothing},  // never the beginning of a character
      {"\xC0\xAF and more", 2, nothing},
  };
  const TestHome home;
  const auto path = home.path() / "file.md";
  for (const auto& row : rows) {
    home.writeFile(path, row.bytes);
    const auto content = MCPContent::extract(path, row.limit);
    EXPECT_EQ(content ? content->text : nothing, row.text) << row.bytes.substr(0, 20);
    EXPECT_EQ(content ? content->method : "text", "text");
  }
}

// The content is never asked what it is.
TEST(Extract, ChoosesByTheExtensionAlone) {
  const TestHome home;
  const std::string pdf = fileBytes(TEST_DATA "/pdf/lines.pdf");
  const struct {
    const char* name;
    std::string bytes;
    const char* method;  // empty: nothing
  } rows[] = {
      {"report.PDF", pdf, "PDFKit"},      {"report", pdf, "text"},
      {"report.csv", pdf, "text"},        {"text.pdf", "not a PDF", ""},
      {"text.png", "not an image", ""},   {"text.HEIC", "not an image", ""},
      {"text.pages", "no image", "text"},
  };
  for (const auto& row : rows) {
    const auto path = home.path() / row.name;
    home.writeFile(path, row.bytes);
    const auto content = MCPContent::extract(path, 60'000);
    EXPECT_EQ(content ? content->method : "", row.method) << row.name;
  }
}

TEST(RegularFile, IsOpenedAndNothingElse) {
  const TestHome home;
  const auto at = [&home](const char* name) { return (home.path() / name).string(); };
  home.writeFile(at("file"), "bytes");
  std::filesystem::create_directory(at("folder"));
  std::filesystem::create_symlink("file", at("link"));
  std::filesystem::create_symlink("nowhere", at("dangling"));
  std::filesystem::create_symlink("loop", at("loop"));
  ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
  std::filesystem::create_symlink("fifo", at("link to fifo"));
  const Descriptor listener(socket(AF_UNIX, SOCK_STREAM, 0));
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, at("socket").c_str(), sizeof address.sun_path - 1);
  ASSERT_EQ(bind(listener.number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);

  for (const auto& path : {at("file"), at("link")}) {
    const auto file = openRegularFile(path);
    ASSERT_TRUE(file) << path;
    EXPECT_EQ(file->sizeBytes, 5U);
    EXPECT_NE(fcntl(file->descriptor.number(), F_GETFD) & FD_CLOEXEC, 0);
  }
  const std::string refused[] = {
      at("folder"),
      at("dangling"),
      at("loop"),
      at("fifo"),
      at("socket"),
      at("missing"),
      at("file") + "/",
      at("link to fifo"),
      "/dev/zero",
      "/dev/tty",
      "",
      at("file") + std::string("\0.txt", 5),
  };
  for (const auto& path : refused) {
    EXPECT_FALSE(openRegularFile(path)) << path;
    EXPECT_FALSE(MCPContent::extract(path, 60'000)) << path;
  }
}

}  // namespace
}  // namespace norvast
