#include "extractor/old_office/workbook_globals.h"

#include <algorithm>
#include <map>

#include "document/reading_bounds.h"
#include "extractor/old_office/workbook_records.h"
#include "platform/byte_order.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Version = WorkbookVersion;

// BOF, [MS-XLS] 2.4.21: its type tells the older versions. Later ones: at 0 the version (2 bytes),
// at 2 the kind of part (2 bytes).
constexpr std::uint32_t EXCEL2_START = 0x0009;
constexpr std::uint32_t EXCEL3_START = 0x0209;
constexpr std::uint32_t EXCEL4_START = 0x0409;
constexpr std::uint32_t EXCEL97 = 0x0600;
constexpr std::uint32_t GLOBALS = 0x0005;

constexpr std::uint32_t FILE_PASS = 0x002F;    // [MS-XLS] 2.4.117
constexpr std::uint32_t CODE_PAGE = 0x0042;    // 2.4.52: at 0 the number of an encoding (2)
constexpr std::uint32_t DATE_1904 = 0x0022;    // 2.4.77: at 0 whether days count from 1904 (2)
constexpr std::uint32_t BOUND_SHEET = 0x0085;  // 2.4.28
constexpr std::uint32_t SST = 0x00FC;          // 2.4.265

// FORMAT, [MS-XLS] 2.4.126: at 0 the format's number (2), at 2 its code. Before Excel 5 formats are
// numbered as they come, and the code is at 0, in Excel 4 at 2.
constexpr std::uint32_t FORMAT = 0x041E;
constexpr std::uint32_t OLD_FORMAT = 0x001E;

// XF, [MS-XLS] 2.4.353: at 2 the number of a format (2). Excel 3 and 4: at 1 (1). Cells of Excel 2
// name their format themselves.
constexpr std::uint32_t XF = 0x00E0;
constexpr std::uint32_t EXCEL3_XF = 0x0243;
constexpr std::uint32_t EXCEL4_XF = 0x0443;

Version versionOf(const WorkbookRecords& start) {
  switch (start.type()) {
    case EXCEL2_START:
      return Version::excel2;
    case EXCEL3_START:
      return Version::excel3;
    case EXCEL4_START:
      return Version::excel4;
    default:
      return littleEndianAt(start.content(), 0, 2) == EXCEL97 ? Version::excel97 : Version::excel5;
  }
}

std::string encodingOf(std::uint32_t codePage) {
  constexpr std::uint32_t MACINTOSH = 10'000;
  constexpr std::uint32_t OLD_MACINTOSH = 0x8000;
  if (codePage == MACINTOSH || codePage == OLD_MACINTOSH) return "macintosh";
  const std::string name = "cp" + std::to_string(codePage);
  return decodedFrom("", name) ? name : TextForm().encoding;
}

class Globals {
 public:
  Globals(std::string_view stream, Version version) : stream_(stream) {
    found_.version = version;
    found_.textForm.isUtf16 = version == Version::excel97;
  }

  void take(const WorkbookRecords& record) {
    const std::string_view content = record.content();
    switch (record.type()) {
      case FILE_PASS:
        found_.isEncrypted = true;
        break;
      case CODE_PAGE:
        found_.textForm.encoding = encodingOf(littleEndianAt(content, 0, 2));
        break;
      case DATE_1904:
        if (littleEndianAt(content, 0, 2) != 0) found_.dayCount = DayCount::from1904;
        break;
      case SST:
        if (found_.sharedTexts.empty()) found_.sharedTexts = sharedTexts(record.pieces());
        break;
      case BOUND_SHEET:
        takeSheet(record);
        break;
      case FORMAT:
      case OLD_FORMAT:
        takeFormat(record);
        break;
      case XF:
        takeCellFormat(littleEndianAt(content, 2, 2));
        break;
      case EXCEL3_XF:
      case EXCEL4_XF:
        takeCellFormat(littleEndianAt(content, 1, 1));
        break;
      default:
        break;
    }
  }

  WorkbookGlobals finish(bool isOneSheet) {
    for (const std::uint32_t number : cellFormats_) found_.formats.push_back(format(number));
    if (found_.version == Version::excel2) {
      for (std::uint32_t number = 0; number < formats_.size(); ++number) {
        found_.formats.push_back(format(number));
      }
    }
    if (isOneSheet) {
      found_.sheets = {{{}, stream_}};
    } else {
      giveRecordsToSheets();
    }
    return std::move(found_);
  }

 private:
  // BoundSheet8, [MS-XLS] 2.4.28: at 0 where the sheet starts in the stream (4, in bytes), at 4
  // whether it is hidden (1), at 5 its kind (1), at 6 its name with a length of one byte.
  void takeSheet(const WorkbookRecords& record) {
    if (starts_.size() >= MOST_TABLE_ENTRIES) return;
    starts_.push_back(littleEndianAt(record.content(), 0, 4));
    found_.sheets.push_back({workbookText(record.pieces(), 6, 1, found_.textForm), {}});
  }

  void takeFormat(const WorkbookRecords& record) {
    if (formats_.size() >= MOST_TABLE_ENTRIES) return;
    const bool isNumbered = found_.version >= Version::excel5;
    const auto count = static_cast<std::uint32_t>(formats_.size());
    const std::uint32_t number = isNumbered ? littleEndianAt(record.content(), 0, 2) : count;
    const std::size_t at = record.type() == OLD_FORMAT ? 0 : 2;
    const std::size_t lengthBytes = found_.textForm.isUtf16 ? 2 : 1;
    formats_.emplace(number,
                     numberFormat(workbookText(record.pieces(), at, lengthBytes, found_.textForm)));
  }

  void takeCellFormat(std::uint32_t number) {
    if (cellFormats_.size() < MOST_TABLE_ENTRIES) cellFormats_.push_back(number);
  }

  NumberFormat format(std::uint32_t number) const {
    const auto written = formats_.find(number);
    return written == formats_.end() ? builtInNumberFormat(static_cast<int>(number))
                                     : written->second;
  }

  // A sheet's records end at the latest where those of another begin. Of sheets that claim the same
  // records the first has them.
  void giveRecordsToSheets() {
    std::map<std::size_t, std::size_t> sheets;  // by where they start
    for (std::size_t sheet = 0; sheet < starts_.size(); ++sheet) {
      if (starts_[sheet] < stream_.size()) sheets.emplace(starts_[sheet], sheet);
    }
    std::size_t end = stream_.size();
    for (auto each = sheets.rbegin(); each != sheets.rend(); ++each) {
      found_.sheets[each->second].records = stream_.substr(each->first, end - each->first);
      end = each->first;
    }
  }

  std::string_view stream_;
  WorkbookGlobals found_;
  std::map<std::uint32_t, NumberFormat> formats_;  // written in the file, by number
  std::vector<std::uint32_t> cellFormats_;         // numbers of formats
  std::vector<std::size_t> starts_;                // of the sheets
};

}  // namespace

std::optional<WorkbookGlobals> readWorkbookGlobals(std::string_view stream) {
  WorkbookRecords records(stream);
  if (!records.next() || !records.isStartOfPart()) return std::nullopt;
  const Version version = versionOf(records);
  const bool hasGlobals =
      version >= Version::excel5 && littleEndianAt(records.content(), 2, 2) == GLOBALS;
  Globals globals(stream, version);
  while (records.next() && records.type() != END_OF_PART) globals.take(records);
  return globals.finish(!hasGlobals);
}

}  // namespace norvast::extractor
