#include "analysis/type_group.h"

#include <algorithm>
#include <array>

namespace norvast {
namespace {

struct Group {
  std::string_view name;
  std::string_view extensions;  // each between two blanks
};

constexpr std::array<Group, 9> GROUPS = {{
    {"Documents", " pdf txt md markdown rst rtf doc docx odt pages tex epub org log "},
    {"Spreadsheets", " csv tsv xls xlsx ods numbers "},
    {"Presentations", " ppt pptx odp key "},
    {"Images", " png jpg jpeg heic heif tiff tif gif bmp webp svg ico psd raw "},
    {"Code",
     " c cc cpp cxx h hh hpp m mm swift rs go java kt scala py rb pl php js jsx ts tsx css scss "
     "html htm sh bash zsh fish lua r jl hs ml ex exs erl clj cs fs vb sql asm s cmake make gradle "
     "ipynb vue "},
    {"Data", " json jsonl yaml yml toml xml ini conf cfg plist sqlite db parquet "},
    {"Audio", " mp3 m4a aac wav flac ogg opus aiff "},
    {"Video", " mp4 mov mkv avi webm m4v mpg mpeg "},
    {"Archives", " zip tar gz tgz bz2 xz zst 7z rar dmg iso "},
}};

}  // namespace

std::string_view typeGroup(std::string_view extension) {
  if (extension.empty() || extension.find(' ') != std::string_view::npos) return {};
  const auto* found = std::find_if(GROUPS.begin(), GROUPS.end(), [extension](const Group& group) {
    for (std::size_t at = group.extensions.find(extension); at != std::string_view::npos;
         at = group.extensions.find(extension, at + 1)) {
      if (group.extensions[at - 1] == ' ' && group.extensions[at + extension.size()] == ' ') {
        return true;
      }
    }
    return false;
  });
  return found == GROUPS.end() ? std::string_view() : found->name;
}

}  // namespace norvast
