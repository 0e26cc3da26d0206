// File kind: by which way the text of a file is taken.
#pragma once

#include <string_view>

namespace norvast {

struct FileKind {
  enum class Way {
    text,      // plain text, in whatever encoding
    pdf,       // by the program for PDFs
    image,     // by the program for images
    document,  // by the program for documents, as `kind`
    lies,      // the content is not what the extension says
    none       // by none: bytes that are no text, of a kind that is not read
  };
  Way way = Way::none;
  std::string_view kind;

  bool operator==(const FileKind&) const = default;
};

// How many leading bytes tell the kind of a file whose extension does not.
inline constexpr std::size_t TELLING_BYTES = 4096;

// Of a file by its extension, in lower case and without its dot, and its leading bytes, as many as
// it has up to TELLING_BYTES. What the extension says is done, or else the file lies; only one that
// says nothing leaves it to the content.
FileKind fileKind(std::string_view extension, std::string_view leadingBytes);

}  // namespace norvast
