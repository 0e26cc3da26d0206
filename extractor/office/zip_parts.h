// Zip parts: the files within a zip container that hold an office document's or a book's text.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>

#include "document/read_failure.h"

namespace norvast::extractor {

struct ZipPart {
  std::string bytes;
  bool isCut = false;  // there is more than a part may have
};

using ZipParts = std::map<std::string, ZipPart, std::less<>>;  // by name, as "word/document.xml"

// Returns the parts for whose names `isWanted` is true; the others are not unpacked. Fails with
// decodingFailed if the bytes are no zip file or are damaged, with encrypted if a password is
// needed, and with tooLarge if there are too many parts or they unpack to too much
// (reading_bounds.h).
std::variant<ZipParts, ReadFailure> readZipParts(
    std::string_view bytes, const std::function<bool(std::string_view name)>& isWanted);

// Returns the part of that name, or nullptr if there is none.
const ZipPart* findPart(const ZipParts& parts, std::string_view name);

// Returns the name of the part that `reference` in the part `from` refers to: "../a/b.xml" in
// "x/y.xml" is "a/b.xml", and "/a" is "a". Percent signs are decoded, fragments dropped.
std::string resolvedPartName(std::string_view from, std::string_view reference);

}  // namespace norvast::extractor
