#include "extractor/picture/photo_facts.h"

#include <libexif/exif-data.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <memory>

#include "document/document_builder.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

// Of one field: captions that are longer are no captions.
constexpr std::size_t MOST_FIELD_BYTES = 1000;

struct UnrefFields {
  void operator()(ExifData* fields) const { exif_data_unref(fields); }
};
using Fields = std::unique_ptr<ExifData, UnrefFields>;

// Fields stand in folders (Exif 2.32, section 4.6): IFD 0 is about the picture (270 description,
// 315 artist, and what Windows adds: 0x9C9B title, 0x9C9E keywords, 0x9C9F subject, in UTF-16), the
// Exif IFD about the moment (0x9003 original date and time, a text of 19 characters).
// Empty when there is no such field.
std::string field(const Fields& fields, ExifIfd folder, ExifTag tag) {
  ExifEntry* entry = exif_content_get_entry(fields->ifd[folder], tag);
  std::array<char, MOST_FIELD_BYTES> text{};
  if (entry == nullptr || exif_entry_get_value(entry, text.data(), text.size()) == nullptr) {
    return {};
  }
  return collapsed(repairUtf8(text.data()));
}

// Of "2024:05:01 12:30:00". Empty for a clock that was never set, or anything else.
std::string takenOn(const std::string& field) {
  constexpr std::array<const char*, 12> MONTHS = {"January",   "February", "March",    "April",
                                                  "May",       "June",     "July",     "August",
                                                  "September", "October",  "November", "December"};
  std::tm time{};
  const char* end = strptime(field.c_str(), "%Y:%m:%d %H:%M", &time);
  constexpr int FIRST_PHOTOGRAPH = 1826 - 1900;
  if (end == nullptr || time.tm_year < FIRST_PHOTOGRAPH) return {};
  std::array<char, 64> text{};
  (void)std::snprintf(text.data(), text.size(), " on %d %s %d at %02d:%02d", time.tm_mday,
                      MONTHS[static_cast<std::size_t>(time.tm_mon)], time.tm_year + 1900,
                      time.tm_hour, time.tm_min);
  return text.data();
}

// What some makers write into every picture.
bool isMakersOwn(const std::string& caption) {
  return caption.find("DIGITAL CAMERA") != std::string::npos || caption == "SONY DSC";
}

std::string caption(const Fields& fields) {
  for (const ExifTag tag : {EXIF_TAG_IMAGE_DESCRIPTION, EXIF_TAG_XP_TITLE, EXIF_TAG_XP_SUBJECT}) {
    std::string text = field(fields, EXIF_IFD_0, tag);
    if (!text.empty() && !isMakersOwn(text)) return text;
  }
  return {};
}

}  // namespace

std::string photoSentence(std::string_view exif, std::string_view place) {
  const auto* data = reinterpret_cast<const unsigned char*>(exif.data());
  const Fields fields(exif_data_new_from_data(data, static_cast<unsigned int>(exif.size())));
  if (!fields) return {};
  const std::string taken = takenOn(field(fields, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL));
  const std::string shown = caption(fields);
  const std::string words = field(fields, EXIF_IFD_0, EXIF_TAG_XP_KEYWORDS);
  if (taken.empty() && place.empty() && shown.empty() && words.empty()) return {};
  const std::string author = field(fields, EXIF_IFD_0, EXIF_TAG_ARTIST);
  const bool isTaken = !taken.empty() || !place.empty();
  std::string sentence = "Photo" + (isTaken ? " taken" + taken : "");
  if (!place.empty()) sentence += " in " + std::string(place);
  if (!author.empty()) sentence += " by " + author;
  if (!shown.empty()) sentence += ": " + shown;
  if (!words.empty()) sentence += " (" + words + ")";
  return sentence;
}

}  // namespace norvast::extractor
