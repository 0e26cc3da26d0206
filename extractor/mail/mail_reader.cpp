#include "extractor/mail/mail_reader.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include "document/mail_text.h"
#include "document/reading_bounds.h"
#include "extractor/markup/html_reader.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

struct Unref {
  void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Unref>;

struct Free {
  void operator()(char* text) const { g_free(text); }
};

// Encodings of headers, whose converters the C library would load at their first use. Those of
// texts are decoded by our own means.
constexpr const char* HEADER_ENCODINGS[] = {
    "iso-8859-1", "iso-8859-2",  "iso-8859-15", "windows-1250", "windows-1251", "windows-1252",
    "koi8-r",     "iso-2022-jp", "shift_jis",   "euc-jp",       "gb18030",      "big5",
    "euc-kr",     "iso-8859-9",  "iso-8859-7",  "windows-1254", "windows-1256"};

std::string_view view(const char* text) { return text == nullptr ? std::string_view() : text; }

std::string addressText(InternetAddressList* list) {
  if (list == nullptr) return {};
  const std::unique_ptr<char, Free> text(internet_address_list_to_string(list, nullptr, FALSE));
  return std::string(view(text.get()));
}

std::string dateText(GMimeMessage* message) {
  GDateTime* date = g_mime_message_get_date(message);
  if (date == nullptr) return {};
  const std::unique_ptr<char, Free> text(g_date_time_format(date, "%Y-%m-%d %H:%M"));
  return std::string(view(text.get()));
}

// What a part holds, its transfer encoding taken off.
std::string partBytes(GMimePart* part) {
  GMimeDataWrapper* content = g_mime_part_get_content(part);
  if (content == nullptr) return {};
  const Owned<GMimeStream> stream(g_mime_stream_mem_new());
  (void)g_mime_data_wrapper_write_to_stream(content, stream.get());  // what there is of it counts
  const GByteArray* bytes = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream.get()));
  return {reinterpret_cast<const char*>(bytes->data), bytes->len};
}

bool isType(GMimeObject* object, const char* type, const char* subtype) {
  GMimeContentType* content = g_mime_object_get_content_type(object);
  return content != nullptr && g_mime_content_type_is_type(content, type, subtype) != FALSE;
}

std::string charsetOf(GMimeObject* object) {
  return std::string(view(g_mime_object_get_content_type_parameter(object, "charset")));
}

bool isAttachment(GMimeObject* object) {
  return g_mime_object_get_disposition(object) != nullptr &&
         g_ascii_strcasecmp(g_mime_object_get_disposition(object), "attachment") == 0;
}

// The parts of a mail (RFC 2045, RFC 2046) and what becomes of them:
//   multipart/alternative   one text in several forms, the plainest first: the first that says
//                           anything is taken
//   multipart/*             all parts, one after the other
//   multipart/encrypted, application/pkcs7-mime    not read, told as encrypted
//   message/rfc822          a mail within the mail: its sender, its subject as a heading, its text
//   text/calendar, text/x-vcard, and what is an attachment or no text    its name alone
//   text/html               as a page
//   text/*                  as plain text
class MailText {
 public:
  explicit MailText(DocumentBuilder& document) : document_(document) {}

  void add(GMimeMessage* message) {
    addDetail("From: ", addressText(g_mime_message_get_from(message)));
    addDetail("To: ", addressText(g_mime_message_get_to(message)));
    addDetail("Cc: ", addressText(g_mime_message_get_cc(message)));
    addDetail("Date: ", dateText(message));
    if (GMimeObject* body = g_mime_message_get_mime_part(message)) addObject(body, 0);
  }

  bool isEncrypted() const { return isEncrypted_ && !hasText_; }

 private:
  void addDetail(const char* label, const std::string& text) {
    if (!text.empty()) document_.add(Kind::detail, label + text);
  }

  void addObject(GMimeObject* object, std::size_t depth) {
    if (depth > MOST_MAIL_DEPTH || ++parts_ > MOST_MAIL_PARTS || document_.isFull()) return;
    if (GMIME_IS_MULTIPART_ENCRYPTED(object) || isType(object, "application", "pkcs7-mime") ||
        isType(object, "application", "x-pkcs7-mime")) {
      isEncrypted_ = true;
    } else if (GMIME_IS_MULTIPART(object)) {
      addMultipart(GMIME_MULTIPART(object), depth);
    } else if (GMIME_IS_MESSAGE_PART(object)) {
      addForwarded(GMIME_MESSAGE_PART(object), depth);
    } else if (GMIME_IS_PART(object)) {
      addPart(GMIME_PART(object));
    }
  }

  // The order of alternatives goes from the plainest to the richest (RFC 2046, section 5.1.4).
  void addMultipart(GMimeMultipart* multipart, std::size_t depth) {
    const bool isAlternative = isType(GMIME_OBJECT(multipart), "multipart", "alternative");
    const int count = g_mime_multipart_get_count(multipart);
    for (int index = 0; index < count; ++index) {
      const bool hadText = std::exchange(hasText_, false);
      addObject(g_mime_multipart_get_part(multipart, index), depth + 1);
      const bool isDone = isAlternative && hasText_;
      hasText_ = hasText_ || hadText;
      if (isDone) return;
    }
  }

  void addForwarded(GMimeMessagePart* part, std::size_t depth) {
    GMimeMessage* message = g_mime_message_part_get_message(part);
    if (message == nullptr) return;
    addDetail("From: ", addressText(g_mime_message_get_from(message)));
    document_.add(Kind::heading, view(g_mime_message_get_subject(message)));
    if (GMimeObject* body = g_mime_message_get_mime_part(message)) addObject(body, depth + 1);
  }

  void addPart(GMimePart* part) {
    GMimeObject* object = GMIME_OBJECT(part);
    const std::string name(view(g_mime_part_get_filename(part)));
    if (isAttachment(object) || !isType(object, "text", "*"))
      return addDetail("Attachment: ", name);
    const std::string bytes = partBytes(part);
    const std::size_t before = document_.charactersLeft();
    if (isType(object, "text", "html")) {
      (void)addHtml(bytes, charsetOf(object), document_);  // one bad part leaves the others
    } else if (isType(object, "text", "calendar") || isType(object, "text", "x-vcard")) {
      addDetail("Attachment: ", name);
    } else {
      auto text = decodedFrom(bytes, charsetOf(object));
      if (!text) text = decodedText(bytes, Extent::whole);
      if (text) addMailText(*text, document_);
    }
    hasText_ = hasText_ || document_.charactersLeft() < before;
  }

  DocumentBuilder& document_;
  std::size_t parts_ = 0;
  bool hasText_ = false;
  bool isEncrypted_ = false;
};

Owned<GMimeParser> parserOf(std::string_view bytes, GMimeFormat format) {
  const std::string_view leading = bytes.substr(0, MOST_MAIL_BYTES);
  const Owned<GMimeStream> stream(
      g_mime_stream_mem_new_with_buffer(leading.data(), leading.size()));
  Owned<GMimeParser> parser(g_mime_parser_new_with_stream(stream.get()));
  g_mime_parser_set_format(parser.get(), format);
  return parser;
}

// Any bytes would do for the parser, whose message is then empty or all body.
bool isMail(GMimeMessage* message) {
  constexpr const char* HEADERS[] = {"From", "Subject", "Date", "To", "Message-Id", "Received"};
  const auto isThere = [message](const char* header) {
    return g_mime_object_get_header(GMIME_OBJECT(message), header) != nullptr;
  };
  return std::count_if(std::begin(HEADERS), std::end(HEADERS), isThere) >= 2;
}

void prepareMail() {
  g_mime_init();
  // Never closed, so that what they loaded stays.
  static std::array<iconv_t, std::size(HEADER_ENCODINGS)> converters{};
  if (converters.front() != nullptr) return;
  std::transform(std::begin(HEADER_ENCODINGS), std::end(HEADER_ENCODINGS), converters.begin(),
                 [](const char* encoding) { return g_mime_iconv_open("UTF-8", encoding); });
}

}  // namespace

ReadDocument readMail(std::string_view bytes, std::size_t limitCharacters) {
  const auto parser = parserOf(bytes, GMIME_FORMAT_MESSAGE);
  const Owned<GMimeMessage> message(g_mime_parser_construct_message(parser.get(), nullptr));
  if (!message || !isMail(message.get())) return ReadFailure::decodingFailed;
  DocumentBuilder document("mail", limitCharacters);
  document.setTitle(view(g_mime_message_get_subject(message.get())));
  document.setAuthor(addressText(g_mime_message_get_from(message.get())));
  MailText text(document);
  text.add(message.get());
  if (text.isEncrypted()) return ReadFailure::encrypted;
  return document.take();
}

// A mailbox (RFC 4155) puts the line "From sender date" before each mail.
ReadDocument readMailbox(std::string_view bytes, std::size_t limitCharacters) {
  if (!bytes.starts_with("From ")) return ReadFailure::decodingFailed;
  const auto parser = parserOf(bytes, GMIME_FORMAT_MBOX);
  DocumentBuilder document("mail", limitCharacters);
  while (!document.isFull() && g_mime_parser_eos(parser.get()) == FALSE) {
    const Owned<GMimeMessage> message(g_mime_parser_construct_message(parser.get(), nullptr));
    if (!message) break;
    if (!isMail(message.get())) continue;
    document.add(Kind::part, view(g_mime_message_get_subject(message.get())));
    MailText(document).add(message.get());
  }
  return document.take();
}

const DocumentKind* mailKind(std::string_view name) {
  static constexpr DocumentKind MAIL{"mail", readMail, prepareMail};
  static constexpr DocumentKind MAILBOX{"mailbox", readMailbox, prepareMail};
  if (name == MAIL.name) return &MAIL;
  return name == MAILBOX.name ? &MAILBOX : nullptr;
}

}  // namespace norvast::extractor
