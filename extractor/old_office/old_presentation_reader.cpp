#include "extractor/old_office/old_presentation_reader.h"

#include <algorithm>
#include <map>
#include <string>

#include "document/reading_bounds.h"
#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/presentation_records.h"
#include "platform/byte_order.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// [MS-PPT] 2.13.24: types of records.
constexpr std::uint32_t SLIDE_PROPERTIES = 0x03EF;
constexpr std::uint32_t SLIDE_OF_LIST = 0x03F3;
constexpr std::uint32_t TEXT_HEADER = 0x0F9F;
constexpr std::uint32_t TEXT_IN_UTF16 = 0x0FA0;
constexpr std::uint32_t TEXT_IN_BYTES = 0x0FA8;
constexpr std::uint32_t SLIDE_LIST = 0x0FF0;

// Instances of SLIDE_LIST.
constexpr std::uint32_t SLIDES = 0;
constexpr std::uint32_t NOTES = 2;

// What the text header says of the text behind it.
constexpr std::uint32_t TITLE_TEXT = 0;
constexpr std::uint32_t NOTES_TEXT = 2;
constexpr std::uint32_t CENTRED_TITLE_TEXT = 6;
constexpr std::uint32_t OTHER_TEXT = 4;

// "Current User" of an encrypted file.
constexpr std::uint32_t ENCRYPTED = 0xF3D1C4DF;

std::string textOf(const PresentationRecord& record) {
  const bool isWide = record.type == TEXT_IN_UTF16;
  std::string text = decodedFrom(record.content, isWide ? "UTF-16LE" : "ISO-8859-1").value_or("");
  std::replace(text.begin(), text.end(), '\v', ' ');  // a line break within a paragraph
  return text;
}

// Adds texts as they come, each behind its header: of a slide, or the notes of a page of notes.
class PageText {
 public:
  PageText(Kind kind, DocumentBuilder& document) : kind_(kind), document_(document) {}

  void take(const PresentationRecord& record) {
    if (record.type == TEXT_HEADER) part_ = littleEndianAt(record.content, 0, 4);
    if (record.type != TEXT_IN_UTF16 && record.type != TEXT_IN_BYTES) return;
    const std::string text = textOf(record);
    if (text == "*") return;  // stands for the slide's number or date
    if (kind_ == Kind::note) {
      if (part_ == NOTES_TEXT) document_.addLines(kind_, text);
    } else if (part_ == TITLE_TEXT || part_ == CENTRED_TITLE_TEXT) {
      document_.add(Kind::heading, text);
    } else {
      document_.addLines(kind_, text);
    }
  }

 private:
  Kind kind_;
  DocumentBuilder& document_;
  std::uint32_t part_ = OTHER_TEXT;  // that the text plays
};

// Calls `take` with every record at any depth, in their order.
template <typename Take>
void forEach(std::string_view bytes, const Take& take, std::size_t depth = 0) {
  while (const auto record = nextRecord(bytes)) {
    if (!record->isContainer) take(*record);
    if (record->isContainer && depth < MOST_RECORD_DEPTH) {
      forEach(record->content, take, depth + 1);
    }
  }
}

std::string_view listContent(std::string_view document, std::uint32_t instance) {
  while (const auto record = nextRecord(document)) {
    if (record->type == SLIDE_LIST && record->instance == instance) return record->content;
  }
  return {};
}

class Slides {
 public:
  Slides(const PresentationIndex& index, DocumentBuilder& document)
      : index_(index), document_(document) {}

  void add(std::string_view content) {
    std::string_view notes = listContent(content, NOTES);
    while (const auto record = nextRecord(notes)) {
      if (record->type != SLIDE_OF_LIST) continue;
      notes_[littleEndianAt(record->content, 12, 4)] = littleEndianAt(record->content, 0, 4);
    }
    std::string_view slides = listContent(content, SLIDES);
    PageText outline(Kind::paragraph, document_);
    std::optional<PresentationRecord> slide;
    while (const auto record = nextRecord(slides)) {
      if (record->type != SLIDE_OF_LIST) {
        outline.take(*record);
        continue;
      }
      finish(slide);
      document_.add(Kind::part, "Slide " + std::to_string(++number_));
      slide = index_.record(littleEndianAt(record->content, 0, 4));
    }
    finish(slide);
  }

 private:
  // Adds what is not in the outline.
  void finish(const std::optional<PresentationRecord>& slide) {
    if (!slide || document_.isFull()) return;
    addTexts(*slide, Kind::paragraph);
    const auto properties = childOfType(slide->content, SLIDE_PROPERTIES);
    const auto notes = notes_.find(properties ? littleEndianAt(properties->content, 16, 4) : 0);
    if (notes == notes_.end()) return;
    if (const auto page = index_.record(notes->second)) addTexts(*page, Kind::note);
  }

  void addTexts(const PresentationRecord& page, Kind kind) {
    PageText text(kind, document_);
    forEach(page.content, [&](const PresentationRecord& record) { text.take(record); });
  }

  const PresentationIndex& index_;
  DocumentBuilder& document_;
  std::map<std::uint32_t, std::uint32_t> notes_;  // their records' numbers by their own
  int number_ = 0;
};

}  // namespace

ReadDocument readOldPresentation(std::string_view bytes, std::size_t limitCharacters) {
  const auto file = CompoundFile::open(bytes);
  if (!file) return ReadFailure::decodingFailed;
  const auto user = file->stream("Current User");
  const auto stream = file->stream("PowerPoint Document");
  if (!user || !stream) return ReadFailure::decodingFailed;
  if (littleEndianAt(*user, 12, 4) == ENCRYPTED) return ReadFailure::encrypted;
  const PresentationIndex index(*user, *stream);
  const auto content = index.document();
  if (!content) return ReadFailure::decodingFailed;
  DocumentBuilder document("PowerPoint 97", limitCharacters);
  file->addProperties(document);
  Slides(index, document).add(content->content);
  return document.take();
}

}  // namespace norvast::extractor
