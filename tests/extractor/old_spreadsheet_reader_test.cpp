// Workbooks written record by record, as each version of the program wrote them.
#include "extractor/old_office/old_spreadsheet_reader.h"

#include <gtest/gtest.h>

#include <bit>

namespace norvast {
using namespace extractor;

namespace {

std::string number(std::uint64_t value, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, value >>= 8) text += static_cast<char>(value & 0xFF);
  return text;
}
std::string numbers(std::initializer_list<std::uint64_t> values) {
  std::string text;
  for (const std::uint64_t value : values) text += number(value, 2);
  return text;
}
std::string number(double value) { return number(std::bit_cast<std::uint64_t>(value), 8); }

std::string record(std::uint64_t type, const std::string& content) {
  return numbers({type, content.size()}) + content;
}

const std::string END = record(0x0A, "");

// A workbook that is its only sheet, of Excel 5 (0x500) or 97 (0x600), with the formats 0 (none), 1
// (14) and, in Excel 5, 2 ([h]:m) of cells.
std::string sheet(std::uint64_t version, const std::string& records) {
  return record(0x809, numbers({version, 0x10, 0, 0})) + record(0x41E, numbers({164}) + "\5[h]:m") +
         record(0xE0, numbers({0, 0})) + record(0xE0, numbers({0, 14})) +
         record(0xE0, numbers({0, 164})) + records + END;
}

// One with a part for all sheets, and two sheets that claim to start at the same place.
std::string workbook(const std::string& globals, const std::string& records) {
  const auto start = record(0x809, numbers({0x600, 5, 0, 0}));
  const auto bound = [&](std::size_t place, const std::string& name) {
    return record(0x85, number(place, 4) + numbers({0}) + number(name.size(), 1) + '\0' + name);
  };
  const auto place = start.size() + globals.size() + 2 * bound(0, "A").size() + END.size();
  return start + globals + bound(place, "A") + bound(place, "B") + END + sheet(0x600, records);
}

std::string cell(std::uint64_t row, std::uint64_t column, std::uint64_t format = 0) {
  return numbers({row, column, format});
}

TEST(OldSpreadsheet, ShowsTheCellsOfEachVersion) {
  const auto at = cell(0, 0);
  const auto shared =
      record(0xFC, number(1, 4) + number(3, 4) + numbers({1}) + "\x08" + numbers({1}) + "a" +
                       number(0, 4) + numbers({4}) + '\0' + "bc") +
      record(0x3C, "\1" + numbers({0x416, 0x20AC}) + numbers({9}) + '\0' + "cut");
  const auto textOfFormula = record(0x6, at + numbers({0, 0, 0, 0xFFFF}) + "...");
  const struct {
    const char* what;
    std::string bytes;
    std::string text;
    std::optional<ReadFailure> failure = {};
  } rows[] = {
      {"Excel 2",
       record(0x9, numbers({2, 0x10})) + record(0x1E, "\7General") + record(0x1E, "\5d/m/y") +
           record(0x4, numbers({0, 0}) + number(0, 3) + "\1x") +
           record(0x2, numbers({0, 1}) + number(0, 3) + numbers({7})) +
           record(0x3, numbers({0, 2}) + number(0x100, 3) + number(46082.0)) + END,
       "x\t7\t2026-03-01"},
      {"Excel 3 and its numbers of formats",
       record(0x209, numbers({3, 0x10, 0})) + record(0x1E, "\5d/m/y") +
           record(0x243, number(0, 2)) + record(0x203, at + number(46082.0)) + END,
       "2026-03-01"},
      {"Excel 5 in Russian",
       sheet(0x500,
             record(0x42, numbers({1251})) + record(0x204, at + numbers({3}) + "\xC4\xEE\xEC")),
       "Дом"},
      {"short numbers",
       sheet(0x600, record(0x27E, at + number(0x3FF00000, 4)) +
                        record(0x27E, cell(0, 1) + number(0x40590001, 4)) +
                        record(0xBD, numbers({0, 2, 0}) + number(26, 4) + numbers({1}) +
                                         number(184330, 4) + numbers({0}) + number(0xFFFFFFFB, 4) +
                                         numbers({4}))),
       "1\t1\t6\t2026-03-01\t-0.02"},
      {"days from 1904, and hours",
       sheet(0x500, record(0x22, numbers({1})) + record(0x203, cell(0, 0, 1) + number(44620.0)) +
                        record(0x203, cell(0, 1, 2) + number(1.5))),
       "2026-03-01\t36:00"},
      {"shared texts that go on",
       workbook(shared, record(0xFD, cell(1, 0) + number(1, 4)) +
                            record(0xFD, cell(2, 0) + number(2, 4)) +
                            record(0xFD, at + number(0, 4))),
       "A\n\na\n\nbcЖ€\n\ncut\n\nB"},
      {"a text behind a shared formula",
       sheet(0x600,
             textOfFormula + record(0x4BC, "...") + record(0x207, numbers({1}) + '\0' + "f")),
       "f"},
      {"truth and errors",
       sheet(0x600, record(0x205, at + "\1" + '\0') + record(0x205, cell(1, 0) + "\7\1") +
                        record(0x6, cell(2, 0) + numbers({1, 0, 0, 0xFFFF})) +
                        record(0x6, cell(3, 0) + numbers({2, 7, 0, 0xFFFF}))),
       "TRUE\n\nFALSE"},
      {"cells in any order, of which the last counts",
       sheet(0x500, record(0x204, cell(1, 0) + numbers({1}) + "c") +
                        record(0x204, cell(0, 1) + numbers({1}) + "b") +
                        record(0x204, at + numbers({1}) + "x") +
                        record(0x204, at + numbers({1}) + "a")),
       "a\tb\n\nc"},
      {"a chart in a sheet",
       sheet(0x500, record(0x809, numbers({0x500, 0x20})) +
                        record(0x204, cell(1, 0) + numbers({1}) + "x") + END +
                        record(0x204, at + numbers({1}) + "a")),
       "a"},
      {"a record that is cut", sheet(0x500, record(0x204, at + numbers({1}) + "a")) + "\4", "a"},
      {"a length beyond the text", sheet(0x500, record(0x204, at + numbers({900}) + "ab")), "ab"},
      {"a password", sheet(0x600, record(0x2F, numbers({0}))), "", ReadFailure::encrypted},
      {"no cells", sheet(0x600, ""), "", ReadFailure::noText},
      {"no records", "a,b\n1,2\n", "", ReadFailure::decodingFailed},
  };
  for (const auto& row : rows) {
    const ReadDocument read = readOldSpreadsheet(row.bytes, 1000);
    const auto* failure = std::get_if<ReadFailure>(&read);
    EXPECT_EQ(failure == nullptr ? std::nullopt : std::optional(*failure), row.failure) << row.what;
    EXPECT_EQ(failure == nullptr ? plainText(std::get<Document>(read)) : "", row.text) << row.what;
  }
}

}  // namespace
}  // namespace norvast
