// Shared texts: the table of the texts that an old workbook's cells refer to by number ([MS-XLS]
// 2.4.265), written anew in the form that FreeXL reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace norvast::extractor {

inline constexpr std::uint32_t SHARED_TEXTS_RECORD = 0x00FC;
inline constexpr std::uint32_t CONTINUE_RECORD = 0x003C;

// The most that a record may hold ([MS-XLS] 2.1.4).
inline constexpr std::size_t MOST_RECORD_BYTES = 8224;

// The table as a record with those that continue it, from the contents of such records: FreeXL
// takes a workbook with an empty text, or half a character, for crafted, so that there stands a
// blank or U+FFFD; formats are left out, and texts cut that do not fit in two records (8,000
// characters). Empty when there are no texts. Where the contents are cut there are fewer.
std::string rewrittenSharedTexts(std::span<const std::string_view> contents);

}  // namespace norvast::extractor
