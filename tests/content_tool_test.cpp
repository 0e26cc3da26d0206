// read_file_content through the built server: its gates in order, its answers, its audit rows, and
// files made to hurt it.
#include <gtest/gtest.h>
#include <leptonica/allheaders.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/file_bytes.h"
#include "tests/pdf_builder.h"
#include "tests/picture.h"
#include "tests/server_session.h"
#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

using nlohmann::json;

constexpr const char* NO_TEXT = "No on-device text could be extracted from this file type.";
constexpr const char* NOT_NOMINATED = "Denied: not nominated.";
constexpr const char* METADATA_ONLY =
    "Denied: content reads are off for this file (metadata only).";
constexpr const char* SENSITIVE = "Denied: sensitive path.";

// A sanitizer makes every program slower and keeps freed memory for a while.
#ifdef NORVAST_SANITIZED
constexpr std::size_t DAMAGED_PDFS = 60;
constexpr std::size_t DAMAGED_IMAGES = 30;
constexpr long MOST_GROWTH_KILOBYTES = 300'000;
#else
constexpr std::size_t DAMAGED_PDFS = 240;
constexpr std::size_t DAMAGED_IMAGES = 120;
constexpr long MOST_GROWTH_KILOBYTES = 512;
#endif

// A home whose folder of files is nominated, each with its content.
class ReadFileContent : public testing::Test {
 protected:
  ReadFileContent() { home.createIndex(); }

  std::string at(const std::string& name) const { return (home.path() / name).string(); }

  // Nominates the file at that path with these bytes.
  std::string add(const std::string& name, const std::string& bytes, int allowContent = 1) const {
    std::string path = at(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    home.writeFile(path, bytes);
    nominate(path, allowContent);
    return path;
  }

  void nominate(const std::string& path, int allowContent = 1) const {
    home.execute("INSERT INTO mcp_exposure VALUES('" + path + "'," + std::to_string(allowContent) +
                 ")");
  }

  TestHome home;
};

TEST_F(ReadFileContent, PassesItsGatesInOrder) {
  const std::string thousand(1'000, 'x');
  const std::string emoji = "a👩‍👩‍👧é";
  const std::vector<std::vector<std::string>> pages(
      30, std::vector<std::string>(40, std::string(60, 'w')));

  const std::string text = add("notes.md", thousand);
  const std::string clusters = add("emoji", emoji);
  const std::string asJson = add("data.json", R"({"text":"quoted \" and / "})");
  const std::string huge = add("huge.csv", std::string(100'000, 'y'));
  const std::string pdf = add("letter.PDF", pdfOfPages({{"Dear reader"}}));
  const std::string longPdf = add("long.pdf", pdfOfPages(pages));
  const std::string image = add("sign.png", encoded(drawnText({"The harbour"}), IFF_PNG));
  const std::string secret = add(".ssh/id_rsa", "key");
  const std::string closed = add("closed.txt", "text", 0);
  const std::string empty = add("empty.txt", "");
  const std::string gone = at("gone.txt");
  nominate(gone);
  nominate(at("fifo"));
  ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
  nominate("/dev/zero");
  nominate(home.path());
  home.writeFile(at("other.txt"), "text");
  // Of several nominations one with content is enough.
  nominate(closed, 0);
  const std::string twice = add("twice.txt", "text", 0);
  nominate(twice, 1);

  ServerSession server(home);
  const struct {
    json path;
    std::string answer;
    bool isError;
    std::string audited;  // result and severity
  } rows[] = {
      {text, thousand, false, "ok · text · 1000 chars|ok"},
      {clusters, emoji, false, "ok · text · 3 chars|ok"},
      {asJson, R"({"text":"quoted \" and / "})", false, "ok · text · 27 chars|ok"},
      {huge, std::string(60'000, 'y'), false, "ok · text · 60000 chars|ok"},
      {twice, "text", false, "ok · text · 4 chars|ok"},
      {pdf, "Dear reader", false, "ok · PDFKit · 11 chars|ok"},
      {image, "The harbour", false, "ok · Vision OCR · 11 chars|ok"},
      {secret, SENSITIVE, true, "denied · sensitive path|deny"},
      {at("x/.env"), SENSITIVE, true, "denied · sensitive path|deny"},
      {at("other.txt"), NOT_NOMINATED, true, "denied · not allowlisted|warn"},
      {text + "/", NOT_NOMINATED, true, "denied · not allowlisted|warn"},
      {"", NOT_NOMINATED, true, "denied · not allowlisted|warn"},
      {closed, METADATA_ONLY, true, "denied · content reads off|warn"},
      {empty, NO_TEXT, true, "no extractor|warn"},
      {gone, NO_TEXT, true, "no extractor|warn"},
      {at("fifo"), NO_TEXT, true, "no extractor|warn"},
      {"/dev/zero", NO_TEXT, true, "no extractor|warn"},
      {home.path().string(), NO_TEXT, true, "no extractor|warn"},
  };
  std::vector<std::string> audited;
  for (const auto& row : rows) {
    const ToolAnswer answer = server.call("read_file_content", {{"path", row.path}});
    EXPECT_EQ(answer.text, row.answer) << row.path;
    EXPECT_EQ(answer.isError, row.isError) << row.path;
    audited.push_back("read|" + row.path.get<std::string>() + "|" + row.audited);
  }
  const ToolAnswer cut = server.call("read_file_content", {{"path", longPdf}});
  EXPECT_EQ(cut.text.size(), 60'000U);
  audited.push_back("read|" + longPdf + "|ok · PDFKit · 60000 chars|ok");
  EXPECT_EQ(server.call("read_file_content", {{"path", 7}}).text, NOT_NOMINATED);
  audited.emplace_back("read||denied · not allowlisted|warn");
  EXPECT_EQ(server.end(), "");
  EXPECT_EQ(home.auditRows(), audited);
}

// A copy of `bytes` cut short, or with some bits turned, bytes replaced, or a part taken out.
std::string damaged(const std::string& bytes, std::mt19937& random) {
  const auto below = [&random](std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
  };
  std::string result = bytes;
  switch (below(4)) {
    case 0:
      result.resize(below(bytes.size()));
      break;
    case 1:
      for (std::size_t count = 1 + below(8); count > 0; --count) {
        char& byte = result[below(result.size())];
        byte = static_cast<char>(byte ^ (1 << below(8)));
      }
      break;
    case 2:
      for (std::size_t count = 1 + below(64); count > 0; --count) {
        result[below(result.size())] = static_cast<char>(below(256));
      }
      break;
    default:
      result.erase(below(result.size()), 1 + below(200));
  }
  return result;
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

std::string childrenOf(pid_t process) {
  const std::string id = std::to_string(process);
  std::string children = fileBytes("/proc/" + id + "/task/" + id + "/children");
  return children;
}

// Each variant is answered, with text or without; afterwards the server is as small as before.
TEST_F(ReadFileContent, OutlivesDamagedFiles) {
  const std::string pdfs[] = {
      fileBytes(SAMPLES "/projects/greenhouse/Order confirmation.pdf"),
      pdfOfPages({{"One page"}, {"Another page", "of two lines"}, {"The last"}}),
  };
  const Picture drawn = drawnText({"The harbour ferry", "leaves at noon"}, 6);
  const std::string images[] = {
      encoded(drawn, IFF_PNG),
      encoded(drawn, IFF_JFIF_JPEG),
      encoded(drawn, IFF_TIFF_LZW),
      gifAnimation(drawn, ","),
      encoded(Picture(pixConvertTo32(drawn.get())), IFF_WEBP),
      encoded(drawn, IFF_BMP),
      fileBytes(SAMPLES "/receipts/Bakery.heic"),
  };
  const std::string pdf = add("damaged.pdf", "");
  const std::string image = add("damaged.png", "");
  ServerSession server(home);
  std::mt19937 random(4711);
  int texts = 0;
  const auto check = [&](const std::string& path, const std::string& bytes) {
    home.writeFile(path, bytes);
    const ToolAnswer answer = server.call("read_file_content", {{"path", path}});
    if (answer.isError) {
      EXPECT_EQ(answer.text, NO_TEXT);
    } else {
      ++texts;
      EXPECT_EQ(validUtf8Length(answer.text), answer.text.size());
      EXPECT_LE(countClusters(answer.text), 60'000U);
      EXPECT_NE(answer.text, "");
    }
  };
  // Everything is loaded once: what counts and cuts characters too, which plain ASCII needs not.
  check(pdf, pdfOfContent("BT /F1 11 Tf 72 700 Td (Z\\374rich) Tj ET"));
  check(image, images[0]);
  ASSERT_EQ(texts, 2);
  const long residentBefore = residentKilobytes(server.pid());
  const auto descriptorsBefore = openDescriptors(server.pid());
  for (std::size_t variant = 0; variant < DAMAGED_PDFS; ++variant) {
    check(pdf, damaged(pdfs[variant % std::size(pdfs)], random));
  }
  for (std::size_t variant = 0; variant < DAMAGED_IMAGES; ++variant) {
    check(image, damaged(images[variant % std::size(images)], random));
  }
  EXPECT_GT(texts, 20);  // damage of all degrees
  EXPECT_EQ(openDescriptors(server.pid()), descriptorsBefore);
  EXPECT_EQ(childrenOf(server.pid()), "");
  EXPECT_LE(residentKilobytes(server.pid()), residentBefore + MOST_GROWTH_KILOBYTES);
  EXPECT_EQ(server.end(), "");
}

// The memory of one colour in 30,000 x 30,000 pixels of a bit each is 112 MB, and in shades of grey
// more than the decoder may have.
std::string imageBomb() {
  const Picture black(pixCreate(30'000, 30'000, 1));
  return encoded(black, IFF_PNG);
}

TEST_F(ReadFileContent, RefusesBombsInBoundedTime) {
  const std::string sparsePdf = add("sparse.pdf", "%PDF-1.5\n");
  const std::string sparsePng = add("sparse.png", "\x89PNG\r\n\x1A\n");
  std::filesystem::resize_file(sparsePdf, std::uintmax_t{10} << 30);
  std::filesystem::resize_file(sparsePng, std::uintmax_t{10} << 30);
  const std::string paths[] = {add("bomb.png", imageBomb()), sparsePdf, sparsePng};
  ServerSession server(home);
  const std::string text = add("sparse.txt", "");
  std::filesystem::resize_file(text, std::uintmax_t{10} << 30);
  EXPECT_EQ(server.call("read_file_content", {{"path", text}}).text, std::string(60'000, '\0'));
  const long residentBefore = residentKilobytes(server.pid());
  for (const std::string& path : paths) {
    const ToolAnswer answer = server.call("read_file_content", {{"path", path}});
    EXPECT_EQ(answer.text, NO_TEXT) << path;
  }
  EXPECT_LE(residentKilobytes(server.pid()), residentBefore + MOST_GROWTH_KILOBYTES);
}

}  // namespace
}  // namespace norvast
