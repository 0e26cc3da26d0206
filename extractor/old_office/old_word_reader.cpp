#include "extractor/old_office/old_word_reader.h"

#include <gsf/gsf-input-memory.h>
#include <wv/wv.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "document/table_row.h"
#include "extractor/old_office/compound_file.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// [MS-DOC] 2.4.1: what stands for itself in the text.
constexpr U16 CELL_END = 7;
constexpr U16 LINE_BREAK = 11;
constexpr U16 PAGE_BREAK = 12;
constexpr U16 FIELD_START = 19;
constexpr U16 FIELD_SHOWN = 20;
constexpr U16 FIELD_END = 21;
constexpr U16 FIXED_HYPHEN = 30;
constexpr U16 FIRST_PRINTED = 32;

// [MS-DOC] 2.9.271: the styles "heading 1" to "heading 9" and "Title", whatever they are called.
constexpr U32 FIRST_HEADING_STYLE = 1;
constexpr U32 LAST_HEADING_STYLE = 9;
constexpr U32 TITLE_STYLE = 62;

// What the library adds to the version of an encrypted file.
constexpr int ENCRYPTED = 0x8000;

// Builds the document from what the library calls in its order.
class OldWordText {
 public:
  explicit OldWordText(DocumentBuilder& document) : document_(document) {}

  void startParagraph(const wvParseStruct& file, const PAP& properties) {
    isInTable_ = properties.fInTable != 0;
    isRowEnd_ = properties.fTtp != 0;
    isHeading_ = false;
    if (properties.istd >= file.stsh.Stshi.cstd || file.stsh.std == nullptr) return;
    const U32 style = file.stsh.std[properties.istd].sti;
    isHeading_ =
        (style >= FIRST_HEADING_STYLE && style <= LAST_HEADING_STYLE) || style == TITLE_STYLE;
  }

  void endParagraph() {
    decode();
    if (isRowEnd_) {
      text_.clear();
      row_.finish(document_);
    } else if (isInTable_) {
      text_ += '\n';
    } else {
      row_.finish(document_);
      const std::string text = std::exchange(text_, {});
      isHeading_ ? document_.add(Kind::heading, text) : document_.addLines(Kind::paragraph, text);
    }
  }

  // `encoding` is that of a single byte; UTF-16 for a unit of that.
  void add(U16 unit, const char* encoding) {
    if (isFieldMark(unit) || isInInstruction() || document_.isFull()) return;
    if (unit == CELL_END && isInTable_) return endCell();
    if (unit == LINE_BREAK || unit == PAGE_BREAK) unit = '\n';
    if (unit == FIXED_HYPHEN) unit = '-';
    if (unit < FIRST_PRINTED && unit != '\t' && unit != '\n') return;
    if (std::string_view(encoding) != encoding_) decode();
    encoding_ = encoding;
    bytes_ += static_cast<char>(unit & 0xFF);
    if (encoding_ == UTF16) bytes_ += static_cast<char>(unit >> 8);
  }

  static constexpr const char* UTF16 = "UTF-16LE";

 private:
  // Fields stand within each other; what is behind FIELD_SHOWN is seen, if those around are.
  bool isFieldMark(U16 unit) {
    if (unit == FIELD_START) {
      isShown_.push_back(false);
    } else if (unit == FIELD_SHOWN && !isShown_.empty()) {
      isShown_.back() = true;
    } else if (unit == FIELD_END && !isShown_.empty()) {
      isShown_.pop_back();
    }
    return unit >= FIELD_START && unit <= FIELD_END;
  }

  bool isInInstruction() const {
    return std::find(isShown_.begin(), isShown_.end(), false) != isShown_.end();
  }

  void endCell() {
    decode();
    if (isRowEnd_) return;
    row_.startCell();
    row_.add(std::exchange(text_, {}));
  }

  void decode() {
    if (bytes_.empty()) return;
    const std::string bytes = std::exchange(bytes_, {});
    text_ += decodedFrom(bytes, encoding_).value_or("");
  }

  DocumentBuilder& document_;
  TableRow row_;
  std::string text_;      // of the paragraph or cell at hand
  std::string bytes_;     // not yet decoded
  std::string encoding_;  // of those
  std::vector<bool> isShown_;
  bool isInTable_ = false;
  bool isRowEnd_ = false;
  bool isHeading_ = false;
};

OldWordText& textOf(wvParseStruct* file) { return *static_cast<OldWordText*>(file->userData); }

// From Word 97 on, bytes are those of windows-1252, whatever the language.
const char* encodingOf(wvParseStruct* file, U8 isByte, U16 language) {
  if (isByte == 0) return OldWordText::UTF16;
  return wvQuerySupported(&file->fib, nullptr) == WORD8 ? "CP1252"
                                                        : wvLIDToCodePageConverter(language);
}

int onCharacter(wvParseStruct* file, U16 unit, U8 isByte, U16 language) {
  textOf(file).add(unit, encodingOf(file, isByte, language));
  return 0;
}

// Field marks are among these; what else there is stands for pictures and the like.
int onSpecialCharacter(wvParseStruct* file, U16 unit, CHP* /*properties*/) {
  if (unit >= FIELD_START && unit <= FIELD_END) textOf(file).add(unit, OldWordText::UTF16);
  return 0;
}

int onElement(wvParseStruct* file, wvTag tag, void* properties, int /*isChanged*/) {
  if (tag == PARABEGIN) textOf(file).startParagraph(*file, *static_cast<const PAP*>(properties));
  if (tag == PARAEND) textOf(file).endParagraph();
  return 0;
}

int onDocument(wvParseStruct* /*file*/, wvTag /*tag*/) { return 0; }

}  // namespace

void prepareOldWord() {
  CompoundFile::prepare();
  (void)wvInit();
}

ReadDocument readOldWord(std::string_view bytes, std::size_t limitCharacters) {
  DocumentBuilder document("Word 97", limitCharacters);
  if (const auto file = CompoundFile::open(bytes)) file->addProperties(document);
  const OwnedGObject<GsfInput> input(gsf_input_memory_new(
      reinterpret_cast<const guint8*>(bytes.data()), static_cast<gsf_off_t>(bytes.size()), FALSE));
  // What it comes to own lives until the process ends, as after a reading that failed it must.
  static wvParseStruct file;
  const int state = wvInitParser_gsf(&file, input.get());
  if (state > 0 && (state & ENCRYPTED) != 0) return ReadFailure::encrypted;
  if (state != 0) return ReadFailure::decodingFailed;
  OldWordText text(document);
  file.userData = &text;
  wvSetCharHandler(&file, onCharacter);
  wvSetSpecialCharHandler(&file, onSpecialCharacter);
  wvSetElementHandler(&file, onElement);
  wvSetDocumentHandler(&file, onDocument);
  (void)wvText(&file);
  text.endParagraph();
  return document.take();
}

}  // namespace norvast::extractor
