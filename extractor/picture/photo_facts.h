// Photo facts: what a camera or its owner wrote into a picture's EXIF fields, for people to find
// it.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// Returns what is known of a photo as a sentence: "Photo taken on 1 May 2024 at 12:30 in Lisbon by
// Ana: The harbour (ferry, pier)". `exif` is a JPEG picture, or the bare EXIF fields of another
// one, which begin with "Exif" and two NULs. `place` may be empty; EXIF has no field for it. What
// is not known is left out. Returns an empty text if neither the time, the place nor the contents
// are known. At most a few thousand bytes.
std::string photoSentence(std::string_view exif, std::string_view place);

}  // namespace norvast::extractor
