// Photo facts: what a camera or its owner wrote into a picture's EXIF fields, for people to find
// it.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The facts of the JPEG picture in `bytes`, or of the bare EXIF fields of another, which begin with
// "Exif" and two NULs, as a sentence: "Photo taken on 1 May 2024 at 12:30 by Ana: The harbour
// (ferry, pier)". What a field does not say is left out; empty when they say neither when it was
// taken nor what it shows. No more than a few thousand bytes.
std::string photoSentence(std::string_view bytes);

}  // namespace norvast
