// Damaged and hostile files of each kind, given to the readers themselves.
#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>

#include "content/document_reading.h"
#include "content/file_kind.h"
#include "document/reading_bounds.h"
#include "extractor/mail/mail_reader.h"
#include "extractor/office/office_kinds.h"
#include "extractor/page/page_kinds.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"
#include "text/file_name.h"

namespace norvast {
using namespace extractor;

namespace {

constexpr std::size_t LIMIT = 400'000;

ReadDocument readAs(std::string_view kind, std::string_view bytes) {
  const DocumentKind* found = officeKind(kind);
  if (found == nullptr) found = pageKind(kind);
  if (found == nullptr) found = mailKind(kind);
  if (found == nullptr) throw std::invalid_argument("no such kind");
  found->prepare();
  return found->read(bytes, LIMIT);
}

using Parts = std::map<std::string, std::string>;

// These files in an archive of the form that `setForm` sets.
std::string packed(const Parts& parts, void (*setForm)(archive*)) {
  std::string bytes(std::size_t{4} << 20, '\0');
  std::size_t used = 0;
  archive* writer = archive_write_new();
  setForm(writer);
  archive_write_open_memory(writer, bytes.data(), bytes.size(), &used);
  for (const auto& [name, content] : parts) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, name.c_str());
    archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_write_header(writer, entry);
    archive_write_data(writer, content.data(), content.size());
    archive_entry_free(entry);
  }
  archive_write_free(writer);
  bytes.resize(used);
  return bytes;
}

std::string zip(const Parts& parts) {
  return packed(parts, [](archive* writer) { archive_write_set_format_zip(writer); });
}

std::string gzip(const std::string& bytes) {
  return packed({{"text", bytes}}, [](archive* writer) {
    archive_write_set_format_raw(writer);
    archive_write_add_filter_gzip(writer);
  });
}

std::string repeated(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t index = 0; index < count; ++index) all += text;
  return all;
}

const std::string RELATIONSHIPS = R"(<Relationships><Relationship Id="r" Type="x/officeDocument"
  Target="main.xml"/></Relationships>)";

std::string office(const std::string& main, const Parts& more = {}) {
  Parts parts = {{"_rels/.rels", RELATIONSHIPS}, {"main.xml", main}};
  parts.insert(more.begin(), more.end());
  return zip(parts);
}

const std::string ENTITIES = R"(<!DOCTYPE d [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;">
  <!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;"><!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;">
  <!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;"><!ENTITY f "&e;&e;&e;&e;&e;&e;&e;&e;">
  <!ENTITY file SYSTEM "file:///etc/passwd">]>)";

std::string mail(const std::string& rest) {
  return "From: a@example.org\nSubject: s\nMIME-Version: 1.0\n" + rest;
}

std::string nestedMail(std::size_t depth) {
  std::string bytes = mail("");
  for (std::size_t level = 0; level < depth; ++level) {
    const std::string boundary = "b" + std::to_string(level);
    bytes += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + "\n";
  }
  return bytes + "\ntext\n";
}

TEST(HostileFile, GivesAReasonInBoundedTime) {
  const std::string sheet = R"(<workbook xmlns:r="a/relationships"><sheet name="S" r:id="r"/>
    </workbook>)";
  const std::string ofSheet = R"(<Relationships><Relationship Id="r" Type="x/worksheet"
    Target="sheet.xml"/></Relationships>)";
  const std::string wideRow =
      "<s><row>" + repeated(100'000, "<c><v>7</v></c>") + "</row><row><c><v>8</v></c></row></s>";
  const std::string parts = repeated(10'000, "--b\nContent-Type: text/plain\n\nx\n");
  const struct {
    const char* what;
    std::string_view kind;
    std::string bytes;
    std::optional<ReadFailure> failure;
    std::string text;  // when there is no failure
  } rows[] = {
      {"blown up 1:1000", "word", office("<document>" + std::string(std::size_t{64} << 20, ' ')),
       ReadFailure::tooLarge, ""},
      {"letters drawn as a picture",
       "word",
       office("<document><p><textpath string='Sale'/></p></document>"),
       {},
       "Sale"},
      {"entities in entities", "word", office(ENTITIES + "<document><p><t>&f;!</t></p></document>"),
       ReadFailure::decodingFailed, ""},
      {"a stranger's file", "xml", ENTITIES + "<d>before &file; after</d>", {}, "before after"},
      {"an entity that is itself", "xml", "<!DOCTYPE d [<!ENTITY a \"&a;\">]><d>&a;</d>",
       ReadFailure::decodingFailed, ""},
      {"deep XML", "xml", repeated(100'000, "<a>"), ReadFailure::decodingFailed, ""},
      {"deep HTML", "html", repeated(1'000'000, "<div>"), ReadFailure::tooLarge, ""},
      {"deep RTF", "rtf", "{\\rtf" + repeated(1'000'000, "{"), ReadFailure::tooLarge, ""},
      {"a row of 100,000 cells",
       "spreadsheet",
       office(sheet, {{"_rels/main.xml.rels", ofSheet}, {"sheet.xml", wideRow}}),
       {},
       "S\n\n7" + repeated(MOST_CELLS_A_ROW - 1, "\t7") + "\n\n8"},
      {"a slide that leads to itself", "presentation",
       office(R"(<presentation xmlns:r="a/relationships"><sldId r:id="r"/></presentation>)",
              {{"_rels/main.xml.rels", R"(<R><Relationship Id="r" Type="notesSlide"
                Target="main.xml"/></R>)"}}),
       ReadFailure::noText, ""},
      {"a password", "word",
       "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" +
           std::string("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32),
       ReadFailure::encrypted, ""},
      {"another password", "opendocument",
       zip({{"META-INF/manifest.xml", "<m><encryption-data/></m>"}, {"content.xml", "?"}}),
       ReadFailure::encrypted, ""},
      {"10,000 parts",
       "mail",
       mail("Content-Type: multipart/mixed; boundary=b\n\n" + parts),
       {},
       "x" + repeated(MOST_MAIL_PARTS - 2, "\n\nx")},
      {"parts in parts", "mail", nestedMail(5'000), {}, ""},
      {"an encrypted mail", "mail", mail("Content-Type: application/pkcs7-mime\n\nxx\n"),
       ReadFailure::encrypted, ""},
      {"a manual's string that is itself",
       "manual",
       ".ds a \\*a\\*ax\n" + repeated(30, "\\*a"),
       {},
       repeated(30, repeated(31, "x"))},
      {"a manual's string of many others that are empty",
       "manual",
       ".ds b " + repeated(300, "\\*b") + "\n" + repeated(2000, "\\*b\n") + "c\n",
       {},
       "c"},
      {"a manual's line of many",
       "manual",
       ".nr x " + repeated(300'000, "\\\\\\\n") + "\nc\n",
       {},
       "c"},
      {"a manual's conditions behind conditions",
       "manual",
       repeated(200'000, ".if n ") + "b\nc\n",
       {},
       "c"},
      {"a manual's table without an end",
       "manual",
       ".TS\ntab(§);\nl l.\na§b\n.SH C\n.EQ\nd\n.SH E\n",
       {},
       "a\tb\n\nC\n\nE"},
      {"a manual's condition that is turned round often",
       "manual",
       ".if " + std::string(1'000'000, '!') + "n c\n",
       {},
       "c"},
      {"a manual's definition without an end", "manual", ".de X\n" + repeated(1000, ".if n \\{\n"),
       ReadFailure::noText, ""},
      {"a notebook of a wrong shape", "notebook", R"({"cells": [1, {"source": {"a": 1}}]})",
       ReadFailure::noText, ""},
      {"a workbook in the place of a text", "word", office("<workbook/>"),
       ReadFailure::decodingFailed, ""},
      {"an encoding that is decoded once",
       "xml",
       "<?xml version='1.0' encoding='ISO-8859-2'?><d>\xA3\xF3"
       "d\xBC</d>",
       {},
       "Łódź"},
      {"an empty archive", "packed", std::string(10'240, '\0'), ReadFailure::noText, ""},
      {"a zip archive without files", "packed", "PK\x05\x06" + std::string(18, '\0'),
       ReadFailure::noText, ""},
      {"names as DOS wrote them",
       "packed",
       zip({{"\x9A"
             "bung.txt",
             "x"}}),
       {},
       "Übung.txt"},
      {"names in UTF-8, which nothing says", "packed", zip({{"Übung.txt", "x"}}), {}, "Übung.txt"},
      {"names as Latin-1 systems wrote them",
       "packed",
       packed({{"\xDC"
                "bung.txt",
                "x"}},
              [](archive* writer) { archive_write_set_format_ustar(writer); }),
       {},
       "Übung.txt"},
      {"an empty text", "packed", gzip(""), ReadFailure::noText, ""},
      {"packed XML", "packed", gzip("<?xml version='1.0'?><d a='b'>Pump</d>"), {}, "Pump"},
      {"packed XML that ends too early",
       "packed",
       gzip("<?xml version='1.0'?><d>Pump"),
       {},
       "<?xml version='1.0'?><d>Pump"},
      {"packed PostScript", "packed", gzip("%!PS-Adobe-3.0\n(Pump) show\n"), ReadFailure::noReader,
       ""},
      {"a gzip bomb", "packed", gzip(std::string(std::size_t{16} << 20, ' ')),
       ReadFailure::tooLarge, ""},
  };
  for (const auto& row : rows) {
    const ReadDocument read = readAs(row.kind, row.bytes);
    const auto* failure = std::get_if<ReadFailure>(&read);
    EXPECT_EQ(failure == nullptr ? std::nullopt : std::optional(*failure), row.failure) << row.what;
    EXPECT_EQ(failure == nullptr ? plainText(std::get<Document>(read)) : "", row.text) << row.what;
  }
}

// What every document must be, of whatever bytes.
void expectSound(const ReadDocument& read) {
  const auto* document = std::get_if<Document>(&read);
  if (document == nullptr) return;
  const Document bounded = withinBounds(*document);
  EXPECT_EQ(parseDocument(writeDocument(bounded)), bounded);
  EXPECT_LE(plainText(*document).size(), 5 * LIMIT);
}

std::string damaged(std::string bytes, int variant, std::mt19937& random) {
  if (variant % 2 == 0) bytes.resize(random() % bytes.size());
  for (int flips = variant % 5; flips > 0 && !bytes.empty(); --flips) {
    char& byte = bytes[random() % bytes.size()];
    byte = static_cast<char>(byte ^ (1 << random() % 8));
  }
  return bytes;
}

// Older office files break their libraries, which the lock alone holds.
TEST(DamagedFile, IsReadSoundlyOrNotAtAll) {
  constexpr int VARIANTS = 200;
  constexpr int LOCKED_IN_VARIANTS = 20;
  std::mt19937 random(1);
  const TestHome home;
  for (const auto& entry : std::filesystem::directory_iterator(TEST_DATA "/documents")) {
    if (entry.path().extension() == ".expected") continue;
    const std::string sample = fileBytes(entry.path());
    const std::string_view kind = fileKind(pathExtension(entry.path().string()), sample).kind;
    const bool isLockedIn = kind.starts_with("old-");
    for (int variant = 0; variant < (isLockedIn ? LOCKED_IN_VARIANTS : VARIANTS); ++variant) {
      const std::string bytes = damaged(sample, variant, random);
      if (!isLockedIn) {
        expectSound(readAs(kind, bytes));
        continue;
      }
      home.writeFile(home.path() / entry.path().filename(), bytes);
      expectSound(readDocument(home.path() / entry.path().filename()));
    }
  }
}

}  // namespace
}  // namespace norvast
