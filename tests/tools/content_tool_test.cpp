// read_file_content on files made to hurt it: damaged ones, and bombs.
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <iostream>
#include <random>
#include <string>

#include "tests/harness/file_bytes.h"
#include "tests/harness/process_status.h"
#include "tests/harness/server_session.h"
#include "tests/harness/strain.h"
#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

const std::string PICTURES = TEST_DATA "/pictures/";
const std::string PDFS = TEST_DATA "/pdf/";
const std::string GIVEN = SAMPLES "/";

constexpr const char* NO_TEXT = "No on-device text could be extracted from this file type.";

// A sanitizer keeps freed memory for a while.
#ifdef NORVAST_SANITIZED
constexpr long MOST_GROWTH_KILOBYTES = 300'000;
#else
constexpr long MOST_GROWTH_KILOBYTES = 512;
#endif

// SQLite keeps the pages of the growing audit trail, up to that.
constexpr long PAGE_CACHE_KILOBYTES = 2000;

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

// A server that reads damaged files, and must come out of it as small as it was.
class DamagedFiles : public testing::Test {
 protected:
  DamagedFiles() {
    // Everything is loaded once: what counts and cuts characters too, which ASCII needs not.
    EXPECT_TRUE(read("whole.pdf", fileBytes(PDFS + "accents.pdf")));
    EXPECT_TRUE(read("whole.png", fileBytes(PICTURES + "small-40.png")));
    EXPECT_TRUE(read("sparse.txt", ""));
    residentBefore_ = residentKilobytes(server.pid());
    descriptorsBefore_ = openDescriptors(server.pid());
  }

  void TearDown() override {
    EXPECT_EQ(openDescriptors(server.pid()), descriptorsBefore_);
    EXPECT_TRUE(childrenOf(server.pid()).empty());
    const long cached = strain() > 1 ? PAGE_CACHE_KILOBYTES : 0;
    EXPECT_LE(residentKilobytes(server.pid()), residentBefore_ + MOST_GROWTH_KILOBYTES + cached);
    EXPECT_EQ(server.end(), "");
  }

  // Whether there is a text; either way there is an answer.
  bool read(const std::string& name, const std::string& bytes) {
    const std::string path = home.path() / name;
    home.writeFile(path, bytes);
    if (name.starts_with("sparse")) std::filesystem::resize_file(path, std::uintmax_t{10} << 30);
    home.execute("DELETE FROM mcp_exposure; INSERT INTO mcp_exposure VALUES('" + path + "', 1)");
    const ToolAnswer answer = server.call("read_file_content", {{"path", path}});
    if (!answer.isError) {
      EXPECT_EQ(validUtf8Length(answer.text), answer.text.size());
      EXPECT_LE(countClusters(answer.text), 60'000U);
      EXPECT_NE(answer.text, "");
      return true;
    }
    EXPECT_EQ(answer.text, NO_TEXT);
    return false;
  }

  // Reads each file of one kind with damage of each kind, as often as the strain says.
  void readDamaged(const char* kind, std::initializer_list<std::string> files) {
    std::mt19937 random(static_cast<unsigned>(seed()));
    int texts = 0;
    int reads = 0;
    for (long round = 0; round < strain(); ++round) {
      for (const std::string& file : files) {
        const std::string whole = fileBytes(file);
        for (const Damage damage : {Damage::cut, Damage::bits, Damage::bytes, Damage::gap}) {
          const std::string name = std::filesystem::path(file).filename();
          texts += read(name, damaged(whole, damage, random)) ? 1 : 0;
          ++reads;
        }
      }
    }
    std::cout << reads << " damaged " << kind << ", " << texts << " with a text\n";
    EXPECT_GT(texts, 0);  // damage of all degrees
    EXPECT_LT(texts, reads);
  }

  const TestHome home;
  ServerSession server{withIndex(home)};

 private:
  // The server opens the index as it starts.
  static const TestHome& withIndex(const TestHome& home) {
    home.createIndex();
    return home;
  }

  long residentBefore_ = 0;
  std::ptrdiff_t descriptorsBefore_ = 0;
};

TEST_F(DamagedFiles, OfPdfsAreOutlived) {
  readDamaged("PDFs", {PDFS + "accents.pdf", PDFS + "three-pages.pdf",
                       GIVEN + "projects/greenhouse/Order confirmation.pdf"});
  EXPECT_FALSE(read("sparse.pdf", "%PDF-1.5\n"));
}

TEST_F(DamagedFiles, OfPicturesAreOutlived) {
  readDamaged("pictures",
              {GIVEN + "receipts/Bakery.heic", PICTURES + "small-40.png",
               PICTURES + "photograph.jpg", PICTURES + "pages.tiff", PICTURES + "animation.gif",
               PICTURES + "colour.webp", PICTURES + "two-colours.bmp"});
  EXPECT_FALSE(read("sparse.png", "\x89PNG\r\n\x1A\n"));
#ifndef NORVAST_SANITIZED  // which has no limit on its memory, and that is what ends a bomb
  EXPECT_FALSE(read("bomb.tif", fileBytes(PICTURES + "bomb.tif")));
#endif
}

}  // namespace
}  // namespace norvast
