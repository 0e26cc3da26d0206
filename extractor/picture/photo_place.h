// Photo place: where a photo was taken, as its owner or a program that knows maps wrote it down.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// Returns the place that the XMP packet in a picture of any format names (ISO 16684-1; IPTC Photo
// Metadata Standard, "Location"), from the smallest to the largest: "Niederdorf, Zürich,
// Switzerland". Returns an empty text if there is no packet, or no place in it. At most a few
// hundred bytes.
std::string photoPlace(std::string_view bytes);

}  // namespace norvast::extractor
