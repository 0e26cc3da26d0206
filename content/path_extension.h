// Path extension: what a path's name says about the kind of its file.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The part of the last path component behind its last ".", or the empty string when that component
// has none. ASCII letters are lower-cased: no other character's lower case is an ASCII letter that
// occurs in the extensions that we know. Solidi at the end belong to no component.
// "/a.b/report.PDF" gives "pdf", "/a.b/report" and "a." give "", ".bashrc" gives "bashrc".
std::string pathExtension(std::string_view path);

}  // namespace norvast
