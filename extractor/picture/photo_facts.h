// Photo facts: what a camera or its owner wrote into a picture's EXIF fields, for people to find
// it.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// The facts of the JPEG picture in `exif`, or of the bare EXIF fields of another, which begin with
// "Exif" and two NULs, as a sentence: "Photo taken on 1 May 2024 at 12:30 in Lisbon by Ana: The
// harbour (ferry, pier)". EXIF has no field for the place's name, which may be empty. What a field
// does not say is left out; empty when they say neither when and where it was taken nor what it
// shows. No more than a few thousand bytes.
std::string photoSentence(std::string_view exif, std::string_view place);

}  // namespace norvast::extractor
