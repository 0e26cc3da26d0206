// Small files of each kind, made by ordinary programs, and what is read of them.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "content/document_reading.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

// The document as it stands in the .expected files: a letter and a text a line.
std::string shown(const std::variant<Document, ReadFailure>& read) {
  if (const auto* failure = std::get_if<ReadFailure>(&read)) {
    return "failure " + std::to_string(static_cast<int>(*failure)) + "\n";
  }
  const auto& document = std::get<Document>(read);
  std::ostringstream text;
  text << "m " << document.method << "\nt " << document.title << "\nw " << document.author << "\n";
  for (const auto& block : document.blocks) {
    text << static_cast<char>(block.kind) << " " << block.text << "\n";
  }
  return text.str();
}

TEST(DocumentSample, IsReadAsExpected) {
  for (const auto& entry : std::filesystem::directory_iterator(TEST_DATA "/documents")) {
    if (entry.path().extension() == ".expected") continue;
    EXPECT_EQ(shown(readDocument(entry.path())), fileBytes(entry.path().string() + ".expected"))
        << entry.path();
  }
}

constexpr std::string_view RUSSIAN_KOI8 =
    "\xF0\xCF\xDE\xC5\xCD\xD5 \xC2\xD9 \xCE\xC5 \xD3\xCB\xC1\xDA\xC1\xD4\xD8 \xDC\xD4\xCF "
    "\xD0\xD2\xD1\xCD\xCF, \xDE\xD4\xCF\xC2\xD9 \xD7\xD3\xC5 \xD0\xCF\xCE\xD1\xCC\xC9";
const std::string NOTHING;

TEST(PlainTextOfTheIndex, IsDecodedFromTheEncodingThatItHas) {
  const struct {
    std::string bytes;
    std::string text;  // empty: unreadableEncoding
  } rows[] = {
      {"plain", "plain"},
      {"h\xC3\xA4user", "häuser"},
      {"\xEF\xBB\xBFmarked", "marked"},
      {{"\xFF\xFEZ\0\xFC\0", 6}, "Zü"},
      {{"\xFE\xFF\0Z\0\xFC", 6}, "Zü"},
      {{"\xFF\xFE\0\0Z\0\0\0", 8}, "Z"},
      {"Die Stra\xDF"
       "e f\xFChrt \xFC"
       "ber die Br\xFC"
       "cke und sp\xE4ter zum Geb\xE4ude der \xC4mter",
       "Die Straße führt über die Brücke und später zum Gebäude der Ämter"},
      {std::string(RUSSIAN_KOI8), "Почему бы не сказать это прямо, чтобы все поняли"},
      {{"bin\0ary", 7}, NOTHING},
      {{"\xFF\xFE\x61\0\0\0", 6}, NOTHING},  // a NUL in UTF-16 would be one in the index
  };
  const TestHome home;
  for (const auto& row : rows) {
    home.writeFile(home.path() / "a.txt", row.bytes);
    const auto read = readDocument(home.path() / "a.txt");
    const auto* document = std::get_if<Document>(&read);
    EXPECT_EQ(document == nullptr ? NOTHING : document->blocks.front().text, row.text);
  }
}

TEST(DocumentReading, TakesASavedMailForAMail) {
  const struct {
    const char* name;
    std::string bytes;
    const char* method;
  } rows[] = {
      {"saved.txt", "From: Ann\r\nDate: today\r\nSubject: Pump\r\n\r\nIt leaks.\r\n", "mail"},
      {"saved", "Subject: Pump\nX-A: b\n c\nfrom: Ann\ndate: today\n\nIt leaks.\n", "mail"},
      {"long.txt",
       "From: Ann\nDate: today\nSubject: Pump\nX-A: b" + std::string(9000, 'c') + "\n\nIt leaks.\n",
       "mail"},
      {"box.txt",
       "From a@b Thu Jan  1\nFrom: Ann\nDate: today\nSubject: Pump\n\nIt leaks.\n\n"
       "From a@b Thu Jan  1\nFrom: Ann\nSubject: Hose\n\nIt holds.\n",
       "mail"},
      {"letter.txt", "From: Ann\nSubject: Pump\n\nDate: today\n", "text"},
      {"minutes.txt", "From: Ann\nDate: today\nSubject: Pump\nIt leaks.\n\n", "text"},
      {"open.txt", "From: Ann\nDate: today\nSubject: Pump\nIt: leaks", "text"},
      {"travel.txt", "From Ann\n\nIt leaks.\n", "text"},
      {"saved.md", "From: Ann\nDate: today\nSubject: Pump\n\nIt leaks.\n", "text"},
  };
  const TestHome home;
  for (const auto& row : rows) {
    home.writeFile(home.path() / row.name, row.bytes);
    const auto read = readDocument(home.path() / row.name);
    const auto* document = std::get_if<Document>(&read);
    EXPECT_EQ(document == nullptr ? NOTHING : document->method, row.method) << row.name;
  }
}

// The workbook with its record of an encoding (type 0x42) made one of a password (0x2F).
std::string lockedWorkbook() {
  std::string bytes = fileBytes(TEST_DATA "/documents/costs.xls");
  bytes[bytes.find(std::string_view("\x42\0\2\0", 4))] = '\x2F';
  return bytes;
}

// A presentation without the stream that its slides are in.
std::string nothingKnown() {
  std::string bytes = fileBytes(TEST_DATA "/documents/pump.ppt");
  bytes[bytes.find(std::string_view("P\0o\0w\0e\0r\0P", 11))] = 'T';
  return bytes;
}

TEST(DocumentReading, SaysWhyThereIsNoText) {
  const struct {
    const char* name;
    std::string bytes;
    ReadFailure failure;
  } rows[] = {
      {"empty.txt", "", ReadFailure::noText},
      {"text.docx", "not a zip file", ReadFailure::decodingFailed},
      {"page.docx", "PK\x03\x04 cut", ReadFailure::decodingFailed},
      {"pdf.html", "%PDF-1.4\n<a>", ReadFailure::decodingFailed},
      {"picture.txt", "\x89PNG\r\n\x1A\n", ReadFailure::decodingFailed},
      {"text.rtf", "plain", ReadFailure::decodingFailed},
      {"text.eml", "Dear all,\n\nno header\n", ReadFailure::decodingFailed},
      {"text.mbox", "Dear all,\n\nno header\n", ReadFailure::decodingFailed},
      {"text.gz", "plain", ReadFailure::decodingFailed},
      {"open.xml", "<a><b></a>", ReadFailure::decodingFailed},
      {"blank.html", "<p> </p>", ReadFailure::noText},
      {"program",
       {"\x7F"
        "ELF\0",
        5},
       ReadFailure::noReader},
      {"thumbnails", nothingKnown(), ReadFailure::noReader},
      {"drawing.ps", "%!PS-Adobe-3.0\n(Pump) show\n", ReadFailure::noReader},
      {"plain.key", "Plain", ReadFailure::noReader},
      {"cut.doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", ReadFailure::decodingFailed},
      {"cut.xls", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", ReadFailure::decodingFailed},
      {"locked.xls", lockedWorkbook(), ReadFailure::encrypted},
      {"cut.ppt", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", ReadFailure::decodingFailed},
      {"slides.msg", fileBytes(TEST_DATA "/documents/pump.ppt"), ReadFailure::decodingFailed},
      {"cut.msg", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", ReadFailure::decodingFailed},
  };
  const TestHome home;
  for (const auto& row : rows) {
    home.writeFile(home.path() / row.name, row.bytes);
    const auto read = readDocument(home.path() / row.name);
    const auto* failure = std::get_if<ReadFailure>(&read);
    ASSERT_NE(failure, nullptr) << row.name;
    EXPECT_EQ(*failure, row.failure) << row.name;
  }
}

TEST(DocumentReading, LooksAtTheContentWhereTheNameSaysNothing) {
  const TestHome home;
  for (const char* sample : {"recipe.html", "offer.eml", "offers.mbox", "pump.rtf", "pump.epub",
                             "pump.1", "pump.odt", "pump.docx", "costs.xlsx", "two.zip", "pump.doc",
                             "costs.xls", "pump.ppt", "offer.msg", "greeting.txt.gz"}) {
    const auto path = std::filesystem::path(TEST_DATA "/documents") / sample;
    home.writeFile(home.path() / "unnamed", fileBytes(path));
    EXPECT_EQ(shown(readDocument(home.path() / "unnamed")), shown(readDocument(path))) << sample;
  }
}

}  // namespace
}  // namespace norvast
