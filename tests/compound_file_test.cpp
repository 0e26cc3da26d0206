// Compound files: what is written is read again, and damage that leads in circles ends.
#include "extractor/compound_file.h"

#include <gtest/gtest.h>

#include "extractor/compound_writing.h"
#include "extractor/summary_properties.h"

namespace norvast {
namespace {

// Bytes of which no two sectors are the same.
std::string numbered(std::size_t size) {
  std::string bytes;
  while (bytes.size() < size) bytes += std::to_string(bytes.size()) + ",";
  bytes.resize(size);
  return bytes;
}

TEST(CompoundFile, GivesBackWhatWasWritten) {
  // Of these, 1022 sectors are the most that one sector of the table can tell of.
  for (const std::size_t size : {4096U, 4097U, 100'000U, 1022U * 4096, 1023U * 4096, 9'000'000U}) {
    const std::string content = numbered(size);
    const std::string bytes = compoundFileOf("Workbook", content);
    const auto file = CompoundFile::open(bytes);
    ASSERT_TRUE(file) << size;
    EXPECT_EQ(file->stream("Workbook"), content) << size;
    EXPECT_EQ(file->stream("workbook"), std::nullopt);
  }
}

TEST(CompoundFile, GivesNothingOfAStreamThatEndsTooSoon) {
  const std::string bytes = compoundFileOf("Workbook", numbered(100'000));
  const auto cut = CompoundFile::open(std::string_view(bytes).substr(0, bytes.size() - 8192));
  ASSERT_TRUE(cut);
  EXPECT_TRUE(cut->hasStream("Workbook"));
  EXPECT_EQ(cut->stream("Workbook"), std::nullopt);
}

// The table stands behind the header, the directory behind the table.
TEST(CompoundFile, EndsWhereItLeadsInCircles) {
  constexpr std::size_t TABLE = 4096;
  constexpr std::size_t DIRECTORY = 8192;
  constexpr std::size_t ENTRY = 128;
  std::string bytes = compoundFileOf("Workbook", numbered(100'000));
  bytes[TABLE + 4] = 1;  // behind the directory's sector comes itself
  for (std::size_t byte = 1; byte < 4; ++byte) bytes[TABLE + 4 + byte] = 0;
  for (const std::size_t beside : {68U, 72U, 76U}) {
    bytes.replace(DIRECTORY + ENTRY + beside, 4, std::string("\1\0\0\0", 4));  // the entry itself
  }
  const auto file = CompoundFile::open(bytes);
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->hasStream("Workbook"));
  EXPECT_FALSE(file->hasStream("Book"));
}

// [MS-OLEPS]: a set of a code page, if it is not 0, and a title.
std::string propertySet(std::uint16_t codePage, std::uint8_t type, std::string_view title) {
  std::string set("\0\0\0\0\2\0\0\0\1\0\0\0\x18\0\0\0\2\0\0\0\x20\0\0\0\2\0\0\0", 28);
  set += {static_cast<char>(codePage & 0xFF), static_cast<char>(codePage >> 8), 0, 0};
  set += {static_cast<char>(type), 0, 0, 0};
  set += {static_cast<char>(type == 0x1F ? title.size() / 2 : title.size()), 0, 0, 0};
  return std::string(44, '\0') + std::string("\x30\0\0\0", 4) + set.append(title);
}

TEST(SummaryProperties, AreDecodedByTheirCodePage) {
  const struct {
    std::uint16_t codePage;
    std::uint8_t type;
    std::string_view bytes;
    const char* title;
  } rows[] = {
      {0, 0x1E, "B\xFCro", "Büro"},
      {1252, 0x1E, {"B\xFCro\0\0\0", 7}, "Büro"},
      {1251, 0x1E, "\xCF\xEB\xE0\xED", "План"},
      {932, 0x1E, "\x93\x8C\x8B\x9E", "東京"},
      {65001, 0x1E, "B\xC3\xBCro", "Büro"},
      {10000, 0x1E, "B\x9Fro", "Büro"},
      {1200, 0x1E, {"B\0\xFC\0", 4}, "Bü"},
      {1252, 0x1F, {"B\0\xFC\0", 4}, "Bü"},
      {1252, 0x03, "Buero", ""},  // a number
  };
  for (const auto& row : rows) {
    EXPECT_EQ(summaryProperties(propertySet(row.codePage, row.type, row.bytes)).title, row.title)
        << row.codePage;
  }
  EXPECT_EQ(summaryProperties(propertySet(1252, 0x1E, "cut").substr(0, 80)).title, "");
}

}  // namespace
}  // namespace norvast
