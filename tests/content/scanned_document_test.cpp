// Scanned documents: pages that are pictures beside pages that have a text.
// tests/data/pdf/scanned.pdf came out of tiff2pdf, from a picture of 150 dots per inch, and
// pdfunite. Scanners write blanks over their pictures; here, too, in a typeface that the file
// lacks.
#include <gtest/gtest.h>

#include "content/document_reading.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

using Kind = DocumentBlock::Kind;

std::variant<Document, ReadFailure> readPdf(const char* name) {
  return readDocument(std::string(TEST_DATA "/pdf/") + name);
}

TEST(ScannedDocument, HasTheTextOfPagesThatArePictures) {
  const auto read = readPdf("scanned.pdf");
  ASSERT_TRUE(std::holds_alternative<Document>(read));
  const Document expected{
      "PDFKit",
      "",
      "",
      {{Kind::part, "Page 1"},
       {Kind::paragraph, "First line\nSecond line"},
       {Kind::part, "Page 2"},
       {Kind::paragraph, "The harbour ferry\nleaves from pier seven\nevery day at noon"}}};
  EXPECT_EQ(std::get<Document>(read), expected);
}

TEST(ScannedDocument, NamesNoSinglePageAndTellsWhyThereIsNone) {
  const auto single = readPdf("lines.pdf");
  ASSERT_TRUE(std::holds_alternative<Document>(single));
  EXPECT_EQ(plainText(std::get<Document>(single)), "First line\nSecond line");
  for (const auto& [name, reason] : {std::pair("needs-password.pdf", ReadFailure::encrypted),
                                     std::pair("no-text.pdf", ReadFailure::noText),
                                     std::pair("no-pages.pdf", ReadFailure::noText)}) {
    const auto read = readPdf(name);
    ASSERT_TRUE(std::holds_alternative<ReadFailure>(read)) << name;
    EXPECT_EQ(std::get<ReadFailure>(read), reason) << name;
  }
}

TEST(RecognitionLanguages, AreTheLocalesAndEnglish) {
  const struct {
    const char* locale;
    const char* languages;
  } rows[] = {{"de_CH.UTF-8", "deu+eng"},
              {"fr", "fra+eng"},
              {"zh_TW.UTF-8", "chi_tra+eng"},
              {"en_GB.UTF-8", "eng"},
              {"sr_RS@latin", "srp+eng"},
              {"C.UTF-8", "eng"},
              {"POSIX", "eng"},
              {"", "eng"},
              {"../../x", "eng"}};
  for (const auto& row : rows)
    EXPECT_EQ(recognitionLanguages(row.locale), row.languages) << row.locale;
}

}  // namespace
}  // namespace norvast
