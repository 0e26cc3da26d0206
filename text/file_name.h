// File names: what a path's last component is, and what it says of the kind of its file.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The name behind the last solidus of a path.
std::string_view fileName(std::string_view path);

// By which the text of a file is taken: the part of the last path component behind its last ".", or
// the empty string when that component has none. ASCII letters are lower-cased: no other
// character's lower case is an ASCII letter that occurs in the extensions that we know. Solidi at
// the end belong to no component.
// "/a.b/report.PDF" gives "pdf", "/a.b/report" and "a." give "", ".bashrc" gives "bashrc".
std::string pathExtension(std::string_view path);

// What the index keeps as a file's extension: as pathExtension, but for a name whose only dot is
// its first character (".bashrc"), which has none.
std::string fileExtension(std::string_view path);

}  // namespace norvast
