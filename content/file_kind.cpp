#include "content/file_kind.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>

#include "content/mcp_content.h"
#include "document/text_markup.h"
#include "text/ascii.h"

namespace norvast {
namespace {

using Way = FileKind::Way;

struct Extensions {
  std::string_view kind;
  std::string_view list;  // each between two blanks
};

constexpr std::array<Extensions, 16> DOCUMENTS = {{
    {"word", " docx docm dotx dotm "},
    {"spreadsheet", " xlsx xlsm xltx xltm "},
    {"presentation", " pptx pptm ppsx ppsm potx potm "},
    {"opendocument", " odt ott fodt ods ots fods odp otp fodp odg otg fodg "},
    {"epub", " epub "},
    {"html", " html htm xhtml xht shtml "},
    {"xml", " xml fb2 rss atom svg kml gpx docbook dbk "},
    {"rtf", " rtf "},
    {"notebook", " ipynb "},
    {"mail", " eml mht mhtml "},
    {"mailbox", " mbox "},
    {"old-word", " doc dot "},
    {"old-spreadsheet", " xls xlt "},
    {"old-presentation", " ppt pps pot "},
    {"old-mail", " msg "},
    {"packed", " zip tar gz tgz bz2 tbz tbz2 xz txz lzma zst tzst 7z rar iso cab "},
}};

// Extensions of files that nothing else than text is kept in, so far as there are any.
constexpr std::string_view TEXTS = " txt text md markdown rst csv tsv log org tex srt vtt ";

// Files of office programs that no library here reads: some hold long runs of plain text.
constexpr std::string_view UNREAD = " pages numbers key ";

// Begins the files of older office programs. Many pages, RTF and plain texts have the extensions of
// those, since their programs open them.
constexpr std::string_view COMPOUND_FILE = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

struct Signature {
  std::string_view bytes;
  FileKind kind;
};

constexpr std::array<Signature, 18> SIGNATURES = {{
    {"%PDF-", {Way::pdf, {}}},
    {"{\\rtf", {Way::document, "rtf"}},
    {"<?xml", {Way::document, "xml"}},
    {"\x89PNG\r\n\x1A\n", {Way::image, {}}},
    {"\xFF\xD8\xFF", {Way::image, {}}},
    {"GIF8", {Way::image, {}}},
    {{"II*\0", 4}, {Way::image, {}}},
    {{"MM\0*", 4}, {Way::image, {}}},
    {"PK\x03\x04", {Way::document, "packed"}},
    {"PK\x05\x06", {Way::document, "packed"}},
    {"\x1F\x8B", {Way::document, "packed"}},
    {"BZh", {Way::document, "packed"}},
    {{"\xFD"
      "7zXZ\0",
      6},
     {Way::document, "packed"}},
    {"\x28\xB5\x2F\xFD", {Way::document, "packed"}},
    {"7z\xBC\xAF\x27\x1C", {Way::document, "packed"}},
    {"Rar!\x1A\x07", {Way::document, "packed"}},
    {COMPOUND_FILE, {Way::document, "old-office"}},
    {"\x7F"
     "ELF",
     {Way::none, {}}},
}};

bool isIn(std::string_view list, std::string_view extension) {
  if (extension.empty() || extension.find(' ') != std::string_view::npos) return false;
  return list.find(" " + std::string(extension) + " ") != std::string_view::npos;
}

std::optional<FileKind> bySignature(std::string_view bytes) {
  const auto* found = std::find_if(
      SIGNATURES.begin(), SIGNATURES.end(),
      [bytes](const Signature& signature) { return bytes.starts_with(signature.bytes); });
  if (found == SIGNATURES.end()) return std::nullopt;
  return found->kind;
}

// What is in a zip container shows in the names of its first files.
FileKind zipKind(std::string_view bytes) {
  constexpr std::array<Extensions, 5> NAMES = {{{"epub", "mimetypeapplication/epub+zip"},
                                                {"opendocument", "application/vnd.oasis.opendoc"},
                                                {"word", "word/"},
                                                {"spreadsheet", "xl/"},
                                                {"presentation", "ppt/"}}};
  for (const auto& [kind, name] : NAMES) {
    if (bytes.find(name) != std::string_view::npos) return {Way::document, kind};
  }
  return {Way::document, "packed"};
}

bool isMail(std::string_view bytes) {
  constexpr std::string_view FIRST[] = {
      "Return-Path:", "Received:", "Delivered-To:", "Message-ID:", "From:", "X-Mozilla-Status:"};
  return std::any_of(std::begin(FIRST), std::end(FIRST),
                     [bytes](std::string_view header) { return bytes.starts_with(header); }) &&
         bytes.find("\nDate:") != std::string_view::npos;
}

bool hasMark(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
         bytes.starts_with(std::string_view("\0\0\xFE\xFF", 4));
}

// Whether the text is a mail that somebody saved: headers from `start` on, among them those that
// every mail has, down to an empty line or the end of the telling bytes.
bool isSavedMail(std::string_view bytes, std::size_t start = 0) {
  constexpr std::string_view EVERY_MAIL[] = {"\nfrom:", "\ndate:", "\nsubject:"};
  std::string headers = "\n";
  bool hasEnd = false;
  for (std::string_view rest = bytes.substr(start); !rest.empty() && !hasEnd;) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    hasEnd = line.empty() || line == "\r" || (rest.empty() && bytes.size() >= TELLING_BYTES);
    const bool isMore = line.starts_with(' ') || line.starts_with('\t');
    const std::size_t name = std::min(line.find_first_of(": \t"), line.size() - 1);
    if (!hasEnd && !isMore && (name == 0 || line[name] != ':')) return false;
    headers += asciiLowerCase(line) + "\n";
  }
  return hasEnd && std::all_of(std::begin(EVERY_MAIL), std::end(EVERY_MAIL),
                               [&headers](std::string_view each) {
                                 return headers.find(each) != std::string::npos;
                               });
}

// The same behind the line with which a mailbox begins each mail.
bool isSavedMailbox(std::string_view bytes) {
  const std::size_t first = bytes.find('\n');
  return bytes.starts_with("From ") && first != std::string_view::npos &&
         isSavedMail(bytes, first + 1);
}

// Of a file whose extension says nothing.
FileKind byContent(std::string_view bytes) {
  if (const auto kind = bySignature(bytes)) {
    return bytes.starts_with("PK") ? zipKind(bytes) : *kind;
  }
  const TextMarkup markup = markupOf(bytes);
  if (markup == TextMarkup::html) return {Way::document, "html"};
  if (markup == TextMarkup::postScript) return {Way::none, {}};
  if (markup == TextMarkup::manual) return {Way::document, "manual"};
  if (bytes.starts_with("From ") && bytes.find("\nDate:") != std::string_view::npos) {
    return {Way::document, "mailbox"};
  }
  if (isMail(bytes) || isSavedMail(bytes)) return {Way::document, "mail"};
  const bool isBinary = bytes.find('\0') != std::string_view::npos && !hasMark(bytes);
  return {isBinary ? Way::none : Way::text, {}};
}

// Whether what stands in the file is for another reader than the one that the extension names.
// That reader finds out about the rest itself.
bool liesAboutText(std::string_view kind, std::string_view bytes) {
  if (kind != "html" && kind != "xml" && kind != "mail" && !kind.empty()) return false;
  const auto found = bySignature(bytes);
  return found && found->kind != "xml" && found->kind != "rtf";
}

}  // namespace

FileKind fileKind(std::string_view extension, std::string_view leadingBytes) {
  const auto& images = MCPContent::imageExts;
  if (extension == "pdf") return {Way::pdf, {}};
  if (std::find(images.begin(), images.end(), extension) != images.end()) return {Way::image, {}};
  if (isIn(UNREAD, extension)) return {Way::none, {}};
  const auto* document =
      std::find_if(DOCUMENTS.begin(), DOCUMENTS.end(),
                   [extension](const Extensions& each) { return isIn(each.list, extension); });
  const bool isText = isIn(TEXTS, extension);
  if (document == DOCUMENTS.end() && !isText) return byContent(leadingBytes);
  const std::string_view kind = isText ? std::string_view() : document->kind;
  if (kind.starts_with("old-") && !leadingBytes.starts_with(COMPOUND_FILE)) {
    return byContent(leadingBytes);
  }
  if (liesAboutText(kind, leadingBytes)) return {Way::lies, {}};
  const bool maySaveMail = extension == "txt" || extension == "text";
  if (maySaveMail && isSavedMail(leadingBytes)) return {Way::document, "mail"};
  if (maySaveMail && isSavedMailbox(leadingBytes)) return {Way::document, "mailbox"};
  return {isText ? Way::text : Way::document, kind};
}

}  // namespace norvast
