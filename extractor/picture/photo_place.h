// Photo place: where a photo was taken, as its owner or a program that knows maps wrote it down.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// The place that the XMP packet in a picture of any format names (ISO 16684-1; IPTC Photo Metadata
// Standard, "Location"), the smallest first: "Niederdorf, Zürich, Switzerland". Empty when there is
// no packet, or none in it. No more than a few hundred bytes.
std::string photoPlace(std::string_view bytes);

}  // namespace norvast::extractor
