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

// The parts whose names `isWanted`; the others are not unpacked. decodingFailed when the bytes are
// no zip file or are damaged, encrypted when they, or the office file in their place, need a
// password, tooLarge when there are too many or they grow out of proportion: see reading_bounds.h.
std::variant<ZipParts, ReadFailure> readZipParts(
    std::string_view bytes, const std::function<bool(std::string_view name)>& isWanted);

// The part of that name, or nullptr.
const ZipPart* findPart(const ZipParts& parts, std::string_view name);

// The part that `reference` names in the part `from`, as paths within a container do: "../a/b.xml"
// from "x/y.xml" is "a/b.xml", "/a" is "a". Percent signs are resolved, fragments dropped.
std::string resolvedPartName(std::string_view from, std::string_view reference);

}  // namespace norvast::extractor
