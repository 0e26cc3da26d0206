// What the numbers in a spreadsheet's cells are shown as.
#include "extractor/office/cell_formats.h"

#include <gtest/gtest.h>

namespace norvast {
using namespace extractor;

namespace {

enum class Epoch { from1900, from1904 };

std::string shown(const std::string& format, const char* number, Epoch epoch) {
  const bool isBuiltIn = format.find_first_not_of("0123456789") == std::string::npos;
  const std::string id = isBuiltIn ? format : "164";
  const ZipPart styles{"<s><numFmts><numFmt numFmtId='164' formatCode='" + format +
                       "'/></numFmts><cellStyleXfs><xf numFmtId='14'/></cellStyleXfs>"
                       "<cellXfs><xf numFmtId='" +
                       id + "'/></cellXfs></s>"};
  return CellFormats(&styles, epoch == Epoch::from1904).shown(number, "0");
}

TEST(CellFormats, ShowsDatesAndTimesByTheFormat) {
  const struct {
    const char* format;  // a code, or the number of a built-in one
    const char* number;
    const char* text;
    Epoch epoch = Epoch::from1900;
  } rows[] = {
      {"14", "46082", "2026-03-01"},
      {"14", "46082.6", "2026-03-01"},
      {"22", "46082.604166666664", "2026-03-01 14:30"},
      {"20", "46082.604166666664", "14:30"},
      {"21", "0.6042", "14:30:03"},
      {"46", "1.5", "36:00:00"},
      {"58", "46082", "2026-03-01"},
      {"0", "46082.6", "46082.6"},
      {"yyyy\\-mm\\-dd", "46082", "2026-03-01"},
      {"[$-409]d mmm yy", "46082", "2026-03-01"},
      {"mmm", "46082", "2026-03-01"},
      {"hh:mm AM/PM", "46082.25", "06:00"},
      {"h:mm", "0.9999999", "00:00"},
      {"mm:ss.0", "0.002638889", "00:03:48"},
      {"[mm]:ss", "0.05", "01:12:00"},
      {"[h]:mm", "1.9999999", "48:00"},
      {"d.m.yyyy h:mm", "46081.9999999", "2026-03-01"},
      {"d.m.yyyy h:mm", "46081.9999", "2026-02-28 23:59"},
      {"d.m.yyyy h:mm", "0.25", "06:00"},
      // No dates: the letters are text, a width, a colour, or of another section.
      {"0.00\" days\"", "2.5", "2.5"},
      {"0\\d", "2", "2"},
      {"0_d*h", "2", "2"},
      {"[Red]0", "2", "2"},
      {"0;d", "2", "2"},
      {"General", "2", "2"},
      // The first days, and one that never was.
      {"14", "0", "0"},
      {"14", "1", "1900-01-01"},
      {"14", "59", "1900-02-28"},
      {"14", "60", "1900-02-29"},
      {"14", "61", "1900-03-01"},
      {"14", "-1", "-1"},
      {"14", "2958465", "9999-12-31"},
      {"14", "2958466", "2958466"},
      {"14", "0", "1904-01-01", Epoch::from1904},
      {"14", "44620", "2026-03-01", Epoch::from1904},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(shown(row.format, row.number, row.epoch), row.text) << row.format;
  }
}

}  // namespace
}  // namespace norvast
