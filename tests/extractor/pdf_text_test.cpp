// PDF text: order, separation, the cut, and documents that give none. Those in data/pdf are written
// by hand, but for long.pdf, which came out of gs -sDEVICE=pdfwrite, and the two with passwords.
#include "extractor/pdf/pdf_text.h"

#include <gtest/gtest.h>

#include "content/isolated_extraction.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"
#include "text/unicode.h"

namespace norvast {
using namespace extractor;

namespace {

std::string pdf(const char* name) { return fileBytes(std::string(TEST_DATA "/pdf/") + name); }

std::string textOrNothing(const std::variant<std::string, ReadFailure>& read) {
  const auto* text = std::get_if<std::string>(&read);
  return text == nullptr ? std::string() : *text;
}

TEST(PdfText, IsThePagesInOrder) {
  const struct {
    const char* name;
    const char* text;  // empty: nothing
  } rows[] = {
      {"lines.pdf", "First line\nSecond line"},
      {"three-pages.pdf", "Page 1\n\nPage 2\n\nPage 3"},
      {"pages-without-text.pdf", "One\n\nFour"},
      {"accents.pdf", "Zürich € 5"},
      // Columns are read one after the other, whatever the order in the file and beside each other.
      {"columns.pdf", "left one\nleft two\nleft three\n\nright one\nright two\nright three"},
      {"opens-without-password.pdf", "Kept behind a password"},
      {"needs-password.pdf", ""},
      {"no-text.pdf", ""},
      {"no-pages.pdf", ""},
      {"looping-tree.pdf", ""},
      {"many-pages-announced.pdf", ""},
      {"none such", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(textOrNothing(pdfText(pdf(row.name), 60'000)), row.text) << row.name;
  }
}

TEST(PdfText, IsCutAtUserPerceivedCharacters) {
  const struct {
    std::size_t limit;
    const char* text;
  } rows[] = {{1, "P"}, {7, "Page 1\n"}, {9, "Page 1\n\nP"}, {21, "Page 1\n\nPage 2\n\nPage "}};
  for (const auto& row : rows) {
    EXPECT_EQ(textOrNothing(pdfText(pdf("three-pages.pdf"), row.limit)), row.text) << row.limit;
  }
  EXPECT_EQ(textOrNothing(pdfText(pdf("combining.pdf"), 2)), "e\u0301e\u0301");
}

// The program tells its reason to the one that started it.
TEST(IsolatedExtraction, SaysWhyThereIsNoText) {
  const struct {
    std::string bytes;
    ReadFailure pdf;
    ReadFailure image;
  } rows[] = {
      {pdf("needs-password.pdf"), ReadFailure::encrypted, ReadFailure::decodingFailed},
      {pdf("no-text.pdf"), ReadFailure::noText, ReadFailure::decodingFailed},
      {"%PDF-1.4 and nothing else", ReadFailure::decodingFailed, ReadFailure::decodingFailed},
      {"", ReadFailure::noText, ReadFailure::noText},
  };
  const TestHome home;
  for (const auto& row : rows) {
    home.writeFile(home.path() / "file", row.bytes);
    const auto read = [&home] { return openRegularFile(home.path() / "file").value(); };
    EXPECT_EQ(std::get<ReadFailure>(isolatedPdfText(read(), 100)), row.pdf)
        << row.bytes.substr(0, 40);
    EXPECT_EQ(std::get<ReadFailure>(isolatedImageText(read(), 100)), row.image)
        << row.bytes.substr(0, 40);
  }
}

// Whatever the decoder needs of the system's files, the lock leaves it; a text that is silently
// missing would show here.
TEST(PdfText, IsTheSameFromALockedProgram) {
  for (const char* name :
       {TEST_DATA "/pdf/long.pdf", TEST_DATA "/pdf/accents.pdf", TEST_DATA "/pdf/japanese.pdf",
        SAMPLES "/projects/greenhouse/Order confirmation.pdf"}) {
    const auto file = openRegularFile(name);
    ASSERT_TRUE(file) << name;
    const auto unlocked = pdfText(fileBytes(name), 60'000);
    EXPECT_EQ(isolatedPdfText(*file, 60'000), unlocked) << name;
    EXPECT_NE(textOrNothing(unlocked), "") << name;
    EXPECT_EQ(textOrNothing(isolatedPdfText(*file, 3)), firstClusters(textOrNothing(unlocked), 3));
  }
}

}  // namespace
}  // namespace norvast
