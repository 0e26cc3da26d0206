#include <array>

#include "document/type_group.h"

namespace norvast {
namespace {

using namespace std::string_view_literals;

struct Mark {
  std::size_t at;  // in the file
  std::string_view bytes;
  std::string_view group;
};

// From the shared MIME-info database of freedesktop.org; the longer of two marks that may both
// match comes first.
constexpr std::array<Mark, 18> MARKS = {{
    {0, "8BPS"sv, "Images"},
    {8, "WEBP"sv, "Images"},
    {4, "ftypheic"sv, "Images"},
    {4, "ftypavif"sv, "Images"},
    {4, "ftypM4A"sv, "Audio"},
    {4, "ftyp"sv, "Video"},
    {8, "AVI "sv, "Video"},
    {0, "\x1a\x45\xdf\xa3"sv, "Video"},
    {0, "\0\0\x01\xba"sv, "Video"},
    {8, "WAVE"sv, "Audio"},
    {0, "ID3"sv, "Audio"},
    {0, "fLaC"sv, "Audio"},
    {0, "OggS"sv, "Audio"},
    {0, "MThd"sv, "Audio"},
    {257, "ustar"sv, "Archives"},
    {0, "SQLite format 3\0"sv, "Data"},
    {0,
     "\x7f"
     "ELF"sv,
     "Programs"},
    {0, "#!"sv, "Code"},
}};

}  // namespace

std::string_view typeGroupOfContent(std::string_view leadingBytes) {
  for (const Mark& mark : MARKS) {
    if (mark.at < leadingBytes.size() && leadingBytes.substr(mark.at).starts_with(mark.bytes)) {
      return mark.group;
    }
  }
  return {};
}

}  // namespace norvast
