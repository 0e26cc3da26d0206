// Reading bounds: how much of a stranger's file the document readers take, whatever it holds. What
// is beyond them is left out, or makes the file too large where no part of it can be trusted.
#pragma once

#include <cstddef>

namespace norvast {

// Of one part of a zip container, such as a sheet; what comes behind is not unpacked. A part of
// this size holds several times the text that is asked for, with all its markup.
inline constexpr std::size_t MOST_PART_BYTES = std::size_t{16} << 20;

// Of all parts that are unpacked from one file.
inline constexpr std::size_t MOST_UNPACKED_BYTES = std::size_t{128} << 20;

// A file that unpacks to more than the first figure may grow to the second times its own size.
// Office files grow by 5 to 30, sheets of empty rows by 140, a zip bomb by 1,000.
inline constexpr std::size_t HARMLESS_UNPACKED_BYTES = std::size_t{8} << 20;
inline constexpr std::size_t MOST_RATIO = 250;

// Files in one container or archive.
inline constexpr std::size_t MOST_ENTRIES = 20'000;

// Elements within each other: XML (libxml2's own bound is 256), and HTML, where pages that never
// close what they open come to some hundreds.
inline constexpr std::size_t MOST_HTML_DEPTH = 5'000;

// Of one table row; a sheet may have 16,384 columns.
inline constexpr std::size_t MOST_CELLS_A_ROW = 500;

// Styles, shared strings and other entries of a table that the text refers to by number or name.
inline constexpr std::size_t MOST_TABLE_ENTRIES = 2'000'000;

// Of a mail or mailbox: its leading bytes are read, attachments included.
inline constexpr std::size_t MOST_MAIL_BYTES = std::size_t{64} << 20;

// Of one mail: parts in all, and messages and multiparts within each other.
inline constexpr std::size_t MOST_MAIL_PARTS = 1'000;
inline constexpr std::size_t MOST_MAIL_DEPTH = 30;

// Of a notebook, whose parsed form takes several times its size; pictures make them large.
inline constexpr std::size_t MOST_NOTEBOOK_BYTES = std::size_t{16} << 20;

// Of one stream of an older office file, pictures included.
inline constexpr std::size_t MOST_STREAM_BYTES = std::size_t{64} << 20;

// Of an older presentation: records within each other, and times that it was saved.
inline constexpr std::size_t MOST_RECORD_DEPTH = 30;
inline constexpr std::size_t MOST_EDITS = 1'000;

// Groups of an RTF text within each other.
inline constexpr std::size_t MOST_RTF_DEPTH = 1'000;

}  // namespace norvast
