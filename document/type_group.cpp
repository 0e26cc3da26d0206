#include "document/type_group.h"

#include <algorithm>
#include <array>

namespace norvast {
namespace {

struct Group {
  std::string_view name;
  std::string_view extensions;  // each between two blanks
};

constexpr std::array<Group, 13> GROUPS = {{
    {"Documents",
     " pdf txt text md markdown mdown rst adoc asciidoc rtf doc docx docm dot dotx dotm odt ott "
     "fodt "
     "sxw wpd wps abw pages tex latex bib epub mobi azw azw3 fb2 djvu ps eps xps oxps org log nfo "
     "readme man srt vtt "},
    {"Spreadsheets",
     " csv tsv xls xlsx xlsm xlsb xlt xltx xltm ods ots fods sxc numbers gnumeric "},
    {"Presentations", " ppt pptx pptm pps ppsx ppsm pot potx potm odp otp fodp sxi key "},
    {"Mail", " eml emlx msg mbox mbx oft pst ost "},
    {"Web pages", " html htm xhtml xht shtml mhtml mht maff webarchive url webloc "},
    {"Images",
     " png jpg jpeg jpe jfif heic heif avif jxl tiff tif gif bmp webp svg svgz ico icns psd xcf "
     "raw "
     "cr2 cr3 nef arw dng orf rw2 ai odg otg fodg vsd vsdx drawio ppm pgm pbm pnm tga hdr exr "
     "jp2 "},
    {"Code",
     " c cc cpp cxx h hh hpp hxx m mm swift rs go java kt kts scala groovy clj cljs py pyw pyi rb "
     "pl "
     "pm php js mjs cjs jsx ts tsx css scss sass less sh bash zsh fish ps1 bat cmd lua r jl hs lhs "
     "ml "
     "mli ex exs erl elm cs fs vb vbs sql asm s f f90 pas d dart nim zig tcl lisp el scm rkt v vhd "
     "cmake make mk gradle ninja ipynb rmd qmd vue svelte proto graphql diff patch awk sed "},
    {"Data",
     " json jsonl ndjson geojson yaml yml toml xml xsd xsl rdf ini conf cfg properties env plist "
     "desktop "
     "sqlite sqlite3 db mdb accdb dbf parquet feather arrow h5 hdf5 npy npz mat pickle pkl rds sav "
     "dta "
     "ics ical vcf gpx kml kmz shp lock po mo "},
    {"Audio", " mp3 m4a m4b aac wav flac ogg oga opus aif aiff aifc wma mid midi amr ape caf mka "},
    {"Video", " mp4 m4v mov mkv avi webm mpg mpeg mpe mts m2ts 3gp 3g2 flv wmv ogv vob "},
    {"Archives",
     " zip tar gz tgz bz2 tbz tbz2 xz txz zst lz lz4 lzma z 7z rar cab cpio ar deb rpm jar war apk "
     "dmg iso img pkg msi "},
    {"Fonts", " ttf otf ttc woff woff2 pfb afm "},
    {"Programs", " exe dll so dylib o a bin class pyc elf appimage com "},
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
