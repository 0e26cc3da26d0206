// read_file_content on files made to hurt it: damaged ones, and bombs.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "tests/file_bytes.h"
#include "tests/server_session.h"
#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr const char* NO_TEXT = "No on-device text could be extracted from this file type.";

// A sanitizer keeps freed memory for a while.
#ifdef NORVAST_SANITIZED
constexpr long MOST_GROWTH_KILOBYTES = 300'000;
#else
constexpr long MOST_GROWTH_KILOBYTES = 512;
#endif

// Cut short, some bits turned, some bytes replaced, a part taken out.
enum class Damage { cut, bits, bytes, gap };

std::string damaged(std::string bytes, Damage damage, std::mt19937& random) {
  const auto below = [&random](std::size_t end) { return random() % end; };
  const auto each = [&](std::size_t count, auto change) {
    for (; count > 0; --count) change(bytes[below(bytes.size())]);
  };
  switch (damage) {
    case Damage::cut:
      bytes.resize(below(bytes.size()));
      break;
    case Damage::bits:
      each(1 + below(8), [&](char& byte) { byte = static_cast<char>(byte ^ (1 << below(8))); });
      break;
    case Damage::bytes:
      each(1 + below(64), [&](char& byte) { byte = static_cast<char>(below(256)); });
      break;
    case Damage::gap:
      bytes.erase(below(bytes.size()), 1 + below(200));
  }
  return bytes;
}

long residentKilobytes(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) return std::stol(line.substr(6));
  }
  return 0;
}

std::ptrdiff_t openDescriptors(pid_t process) {
  const std::filesystem::directory_iterator all("/proc/" + std::to_string(process) + "/fd");
  return std::distance(begin(all), end(all));
}

// Each variant is answered, with text or without; afterwards the server is as small as before.
TEST(ReadFileContent, OutlivesDamagedFilesAndBombs) {
  const TestHome home;
  home.createIndex();
  ServerSession server(home);
  const auto read = [&](const std::string& name, const std::string& bytes) {
    const std::string path = home.path() / name;
    home.writeFile(path, bytes);
    if (name.starts_with("sparse")) std::filesystem::resize_file(path, std::uintmax_t{10} << 30);
    home.execute("INSERT INTO mcp_exposure VALUES('" + path + "', 1)");
    const ToolAnswer answer = server.call("read_file_content", {{"path", path}});
    if (!answer.isError) {
      EXPECT_EQ(validUtf8Length(answer.text), answer.text.size());
      EXPECT_LE(countClusters(answer.text), 60'000U);
      EXPECT_NE(answer.text, "");
      return true;
    }
    EXPECT_EQ(answer.text, NO_TEXT);
    return false;
  };
  const std::string pictures = TEST_DATA "/pictures/";
  const std::pair<const char*, std::string> files[] = {
      {"accents.pdf", fileBytes(TEST_DATA "/pdf/accents.pdf")},
      {"three-pages.pdf", fileBytes(TEST_DATA "/pdf/three-pages.pdf")},
      {"order.pdf", fileBytes(SAMPLES "/projects/greenhouse/Order confirmation.pdf")},
      {"receipt.heic", fileBytes(SAMPLES "/receipts/Bakery.heic")},
      {"small.png", fileBytes(pictures + "small-40.png")},
      {"photograph.jpg", fileBytes(pictures + "photograph.jpg")},
      {"pages.tiff", fileBytes(pictures + "pages.tiff")},
      {"animation.gif", fileBytes(pictures + "animation.gif")},
      {"colour.webp", fileBytes(pictures + "colour.webp")},
      {"two-colours.bmp", fileBytes(pictures + "two-colours.bmp")},
  };
  // Everything is loaded once: what counts and cuts characters too, which plain ASCII needs not.
  EXPECT_TRUE(read("whole.pdf", files[0].second));
  EXPECT_TRUE(read("whole.png", files[4].second));
  EXPECT_TRUE(read("sparse.txt", ""));
  const long residentBefore = residentKilobytes(server.pid());
  const auto descriptorsBefore = openDescriptors(server.pid());
  std::mt19937 random(4711);
  int texts = 0;
  for (const auto& [name, bytes] : files) {
    for (const Damage damage : {Damage::cut, Damage::bits, Damage::bytes, Damage::gap}) {
      texts += read(name, damaged(bytes, damage, random)) ? 1 : 0;
    }
  }
  EXPECT_GT(texts, 5);  // damage of all degrees
  EXPECT_LT(texts, 35);
  EXPECT_FALSE(read("sparse.pdf", "%PDF-1.5\n"));
  EXPECT_FALSE(read("sparse.png", "\x89PNG\r\n\x1A\n"));
  EXPECT_FALSE(read("bomb.tif", fileBytes(pictures + "bomb.tif")));
  EXPECT_EQ(openDescriptors(server.pid()), descriptorsBefore);
  const std::string id = std::to_string(server.pid());
  EXPECT_EQ(fileBytes("/proc/" + id + "/task/" + id + "/children"), "");
  EXPECT_LE(residentKilobytes(server.pid()), residentBefore + MOST_GROWTH_KILOBYTES);
  EXPECT_EQ(server.end(), "");
}

}  // namespace
}  // namespace norvast
