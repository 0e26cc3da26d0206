#include "extractor/old_office/outlook_reader.h"

#include <array>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

#include "document/mail_text.h"
#include "extractor/markup/html_reader.h"
#include "extractor/old_office/compound_file.h"
#include "platform/byte_order.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// [MS-OXMSG] 2.4: every mail has this stream.
constexpr const char* PROPERTIES = "__properties_version1.0";

// Properties of [MS-OXPROPS], as the names of their streams write them.
constexpr const char* SUBJECT = "0037";
constexpr const char* SENDER_NAME = "0C1A";
constexpr const char* SENDER_ADDRESS = "0C1F";
constexpr const char* SHOWN_TO = "0E04";
constexpr const char* SHOWN_CC = "0E03";
constexpr const char* BODY = "1000";
constexpr const char* PAGE = "1013";
constexpr const char* ATTACHED_FILE = "3707";
constexpr const char* ATTACHED_SHORT_NAME = "3704";

// [MS-OXMSG] 2.1.3: a property of any length is a stream of its own, "__substg1.0_" and eight
// digits: four of the property's number, four of its type: 001F text in UTF-16, 001E text in bytes,
// 0102 binary.
std::optional<std::string> stream(const CompoundFile& file, const char* name, const char* type) {
  return file.stream(("__substg1.0_" + std::string(name) + type).c_str());
}

// As "2026-03-02 09:00" in universal time.
std::string minuteText(std::uint64_t secondsFrom1601) {
  constexpr std::uint64_t UNIX_EPOCH = 11'644'473'600;
  if (secondsFrom1601 < UNIX_EPOCH) return {};
  const auto time = static_cast<std::time_t>(secondsFrom1601 - UNIX_EPOCH);
  std::tm parts{};
  std::array<char, 32> text{};
  if (gmtime_r(&time, &parts) == nullptr) return {};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

// In Unicode, or in an encoding that the file hardly ever tells.
std::string property(const CompoundFile& file, const char* name) {
  if (const auto text = stream(file, name, "001F")) {
    return decodedFrom(*text, "UTF-16LE").value_or("");
  }
  const auto text = stream(file, name, "001E");
  return text ? decodedText(*text, Extent::whole).value_or("") : std::string();
}

void addDetail(DocumentBuilder& document, const char* label, const std::string& text) {
  if (!text.empty()) document.add(Kind::detail, label + text);
}

std::string senderOf(const CompoundFile& file) {
  const std::string name = property(file, SENDER_NAME);
  const std::string address = property(file, SENDER_ADDRESS);
  const bool isAddress = address.find('@') != std::string::npos && address != name;
  if (name.empty() || !isAddress) return name.empty() ? address : name;
  return name + " <" + address + ">";
}

// [MS-OXMSG] 2.4: behind the header of a mail, entries of 16 bytes: tag, flags and value. The time
// counts tenths of microseconds from 1601 on.
std::string sentOn(const CompoundFile& file) {
  constexpr std::size_t HEADER_BYTES = 32;
  constexpr std::size_t ENTRY_BYTES = 16;
  constexpr std::uint32_t CLIENT_SUBMIT_TIME = 0x00390040;
  const std::string entries = file.stream(PROPERTIES).value_or("");
  for (std::size_t at = HEADER_BYTES; at + ENTRY_BYTES <= entries.size(); at += ENTRY_BYTES) {
    if (littleEndianAt(entries, at, 4) != CLIENT_SUBMIT_TIME) continue;
    const std::uint64_t high = littleEndianAt(entries, at + 12, 4);
    const std::uint64_t tenths = high << 32 | littleEndianAt(entries, at + 8, 4);
    return minuteText(tenths / 10'000'000);
  }
  return {};
}

void addBody(const CompoundFile& file, DocumentBuilder& document) {
  const std::string body = property(file, BODY);
  if (!body.empty()) return addMailText(body, document);
  if (const auto page = stream(file, PAGE, "0102")) (void)addHtml(*page, "", document);
}

// [MS-OXMSG] 2.2.2: each attachment is a folder with properties of its own.
void addAttachments(const CompoundFile& file, DocumentBuilder& document) {
  for (int entry = 0; entry < file.entryCount(); ++entry) {
    if (!file.entryName(entry).starts_with("__attach_version1.0_")) continue;
    const auto attachment = file.folder(entry);
    if (!attachment) continue;
    const std::string name = property(*attachment, ATTACHED_FILE);
    addDetail(document,
              "Attachment: ", name.empty() ? property(*attachment, ATTACHED_SHORT_NAME) : name);
  }
}

}  // namespace

ReadDocument readOutlookMail(std::string_view bytes, std::size_t limitCharacters) {
  const auto file = CompoundFile::open(bytes);
  if (!file || !file->stream(PROPERTIES)) return ReadFailure::decodingFailed;
  DocumentBuilder document("mail", limitCharacters);
  const std::string sender = senderOf(*file);
  document.setTitle(property(*file, SUBJECT));
  document.setAuthor(sender);
  addDetail(document, "From: ", sender);
  addDetail(document, "To: ", property(*file, SHOWN_TO));
  addDetail(document, "Cc: ", property(*file, SHOWN_CC));
  addDetail(document, "Date: ", sentOn(*file));
  addBody(*file, document);
  addAttachments(*file, document);
  return document.take();
}

}  // namespace norvast::extractor
