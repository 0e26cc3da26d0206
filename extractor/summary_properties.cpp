#include "extractor/summary_properties.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/byte_order.h"
#include "text/encoding.h"

namespace norvast {
namespace {

// [MS-OLEPS] 2.21: behind the header and the name of the first set, the place where that begins.
constexpr std::size_t PLACE_OF_SET = 44;

// Properties of a set.
constexpr std::uint32_t CODE_PAGE = 1;
constexpr std::uint32_t TITLE = 2;
constexpr std::uint32_t AUTHOR = 4;

// Types of values.
constexpr std::uint32_t BYTES_TYPE = 0x1E;
constexpr std::uint32_t UTF16_TYPE = 0x1F;

constexpr std::uint32_t UTF16_CODE_PAGE = 1200;
constexpr std::uint32_t UTF8_CODE_PAGE = 65001;

// The value of that property, with its type; empty when there is none. A set is its size, the count
// of its properties, and for each of them its number and its place from the set's start.
std::string_view valueOf(std::string_view set, std::uint32_t property) {
  const std::size_t count = littleEndianAt(set, 4, 4);
  for (std::size_t entry = 0, at = 8; entry < count && at + 8 <= set.size(); ++entry, at += 8) {
    if (littleEndianAt(set, at, 4) != property) continue;
    const std::size_t place = littleEndianAt(set, at + 4, 4);
    return place < set.size() ? set.substr(place) : std::string_view();
  }
  return {};
}

std::string encodingOf(std::uint32_t codePage) {
  switch (codePage) {
    case 0:
      return "windows-1252";
    case UTF16_CODE_PAGE:
      return "UTF-16LE";
    case UTF8_CODE_PAGE:
      return "UTF-8";
    default:
      return "windows-" + std::to_string(codePage);
  }
}

std::string textOf(std::string_view value, const std::string& encoding) {
  const std::uint32_t type = littleEndianAt(value, 0, 4);
  if ((type != BYTES_TYPE && type != UTF16_TYPE) || value.size() < 8) return {};
  const bool isWide = type == UTF16_TYPE;
  const std::size_t length = std::size_t{littleEndianAt(value, 4, 4)} * (isWide ? 2 : 1);
  const std::string_view bytes = value.substr(8, length);
  auto decoded = decodedFrom(bytes, isWide ? "UTF-16LE" : encoding);
  if (!decoded) decoded = decodedFrom(bytes, "windows-1252");
  std::string text = std::move(decoded).value_or("");
  text.resize(std::min(text.find('\0'), text.size()));
  return text;
}

}  // namespace

SummaryProperties summaryProperties(std::string_view stream) {
  const std::size_t place = littleEndianAt(stream, PLACE_OF_SET, 4);
  if (place >= stream.size()) return {};
  const std::string_view set = stream.substr(place);
  const std::string encoding = encodingOf(littleEndianAt(valueOf(set, CODE_PAGE), 4, 2));
  return {textOf(valueOf(set, TITLE), encoding), textOf(valueOf(set, AUTHOR), encoding)};
}

}  // namespace norvast
