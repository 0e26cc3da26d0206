// PDF text: order, separation, the cut, and documents that give none.
#include "extractor/pdf_text.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "content/isolated_extraction.h"
#include "tests/file_bytes.h"
#include "tests/pdf_builder.h"
#include "tests/test_home.h"
#include "text/unicode.h"

namespace norvast {
namespace {

// One page that shows `content` in the font /F1, which is object 5; `fonts` are that and those
// after it.
std::string pdfInFont(const std::string& content, const std::vector<std::string>& fonts) {
  std::vector<std::string> objects = {
      "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
      R"(<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] /Contents 4 0 R
      /Resources << /Font << /F1 5 0 R >> >> >>)",
      pdfStream("", content)};
  objects.insert(objects.end(), fonts.begin(), fonts.end());
  return pdfOfObjects(objects);
}

// Japanese in a font that is not embedded: its characters are known from a map among the system's
// files.
std::string japanesePdf() {
  return pdfInFont(
      "BT /F1 14 Tf 72 700 Td <93FA967B8CEA> Tj ET",
      {R"(<< /Type /Font /Subtype /Type0 /BaseFont /HeiseiMin-W3 /Encoding /90ms-RKSJ-H
          /DescendantFonts [6 0 R] >>)",
       R"(<< /Type /Font /Subtype /CIDFontType0 /BaseFont /HeiseiMin-W3 /DW 1000 /CIDSystemInfo
          << /Registry (Adobe) /Ordering (Japan1) /Supplement 2 >> /FontDescriptor 7 0 R >>)",
       R"(<< /Type /FontDescriptor /FontName /HeiseiMin-W3 /Flags 4 /FontBBox [0 -200 1000 800]
          /ItalicAngle 0 /Ascent 800 /Descent -200 /CapHeight 700 /StemV 80 >>)"});
}

// Every A stands for "e" and U+0301 COMBINING ACUTE ACCENT.
std::string combiningPdf() {
  return pdfInFont(
      "BT /F1 14 Tf 72 700 Td (AAA) Tj ET",
      {"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /ToUnicode 6 0 R >>",
       pdfStream("", R"(/CIDInit /ProcSet findresource begin begincmap 1 begincodespacerange <00>
          <FF> endcodespacerange 1 beginbfchar <41> <00650301> endbfchar endcmap end)")});
}

// A page tree whose only node is its own child, over and over.
std::string loopingPdf() {
  return pdfOfObjects({"<< /Type /Catalog /Pages 2 0 R >>",
                       "<< /Type /Pages /Parent 3 0 R /Kids [3 0 R 2 0 R] /Count 4 >>",
                       "<< /Type /Pages /Parent 2 0 R /Kids [2 0 R 3 0 R] /Count 4 >>"});
}

std::string textOrNothing(const std::variant<std::string, ReadFailure>& read) {
  const auto* text = std::get_if<std::string>(&read);
  return text == nullptr ? std::string() : *text;
}

std::string manyPages(int count) {
  std::vector<std::vector<std::string>> pages;
  for (int number = 1; number <= count; ++number) {
    pages.push_back({"Page " + std::to_string(number)});
  }
  return pdfOfPages(pages);
}

TEST(PdfText, IsThePagesInOrder) {
  const struct {
    const char* name;
    std::string document;
    const char* text;  // empty: nothing
  } rows[] = {
      {"lines", pdfOfPages({{"First line", "Second line"}}), "First line\nSecond line"},
      {"pages", manyPages(3), "Page 1\n\nPage 2\n\nPage 3"},
      {"pages without text", pdfOfPages({{"One"}, {}, {"  "}, {"Four"}}), "One\n\nFour"},
      {"accents", pdfOfContent("BT /F1 11 Tf 72 700 Td (Z\\374rich \\200 5) Tj ET"), "Zürich € 5"},
      // Columns are read one after the other, whatever the order in the file and beside each other.
      {"columns",
       pdfOfContent("BT /F1 11 Tf 14 TL 320 700 Td (right one) Tj T* (right two) Tj T* "
                    "(right three) Tj ET BT /F1 11 Tf 14 TL 72 700 Td (left one) Tj T* (left two) "
                    "Tj T* (left three) Tj ET"),
       "left one\nleft two\nleft three\n\nright one\nright two\nright three"},
      {"opens without a password", fileBytes(TEST_DATA "/opens-without-password.pdf"),
       "Kept behind a password"},
      {"needs a password", fileBytes(TEST_DATA "/needs-password.pdf"), ""},
      {"no text", pdfOfPages({{}, {}}), ""},
      {"no pages", pdfOfPages({}), ""},
      {"page tree with a loop", loopingPdf(), ""},
      {"two thousand million pages",
       pdfOfObjects(
           {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [] /Count 2000000000 >>"}),
       ""},
      {"no document", "%PDF-1.4 and nothing else", ""},
      {"nothing", "", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(textOrNothing(pdfText(row.document, 60'000)), row.text) << row.name;
  }
}

TEST(PdfText, IsCutAtUserPerceivedCharacters) {
  const std::string document = manyPages(3);
  const struct {
    std::size_t limit;
    const char* text;
  } rows[] = {
      {1, "P"},
      {7, "Page 1\n"},
      {9, "Page 1\n\nP"},
      {21, "Page 1\n\nPage 2\n\nPage "},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(textOrNothing(pdfText(document, row.limit)), row.text) << row.limit;
  }
  EXPECT_EQ(textOrNothing(pdfText(combiningPdf(), 2)), "e\u0301e\u0301");
}

// The program tells its reason to the one that started it.
TEST(IsolatedExtraction, SaysWhyThereIsNoText) {
  const struct {
    std::string bytes;
    ReadFailure pdf;
    ReadFailure image;
  } rows[] = {
      {fileBytes(TEST_DATA "/needs-password.pdf"), ReadFailure::encrypted,
       ReadFailure::decodingFailed},
      {pdfOfPages({{}}), ReadFailure::noText, ReadFailure::decodingFailed},
      {"%PDF-1.4 and nothing else", ReadFailure::decodingFailed, ReadFailure::decodingFailed},
      {"", ReadFailure::noText, ReadFailure::noText},
  };
  const TestHome home;
  for (const auto& row : rows) {
    home.writeFile(home.path() / "file", row.bytes);
    const auto reason = [&home](auto read) {
      return std::get<ReadFailure>(
          read(*openRegularFile(home.path() / "file"), 100, readingDeadline()));
    };
    EXPECT_EQ(reason(isolatedPdfText), row.pdf) << row.bytes.substr(0, 40);
    EXPECT_EQ(reason(isolatedImageText), row.image) << row.bytes.substr(0, 40);
  }
}

// Whatever the decoder needs of the system's files, the lock leaves it; a text that is silently
// missing would show here.
TEST(PdfText, IsTheSameFromALockedProgram) {
  const std::string documents[] = {
      manyPages(30),
      pdfOfContent("BT /F1 11 Tf 72 700 Td (Z\\374rich \\200 5) Tj ET"),
      japanesePdf(),
      fileBytes(SAMPLES "/projects/greenhouse/Order confirmation.pdf"),
  };
  const TestHome home;
  for (const std::string& document : documents) {
    home.writeFile(home.path() / "file.pdf", document);
    const auto file = openRegularFile(home.path() / "file.pdf");
    ASSERT_TRUE(file);
    const auto unlocked = pdfText(document, 60'000);
    EXPECT_EQ(isolatedPdfText(*file, 60'000), unlocked) << document.substr(0, 200);
    EXPECT_EQ(textOrNothing(isolatedPdfText(*file, 3)), firstClusters(textOrNothing(unlocked), 3));
  }
}

}  // namespace
}  // namespace norvast
