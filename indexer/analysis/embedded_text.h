// Embedded text: what stands for a file or passage when its vector is made. Made of nothing but
// what the index holds, so that vectors can be made again without the file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::indexer {

// Of a passage: its file's name and title and the nearest heading above it, each where it says
// something that is not said yet, and its own text.
std::string embeddedPassage(std::string_view name, std::string_view title, std::string_view heading,
                            std::string_view text);

// Of a whole file: its name, its summary, and its first passages up to 2,000 user-perceived
// characters: the more of them, the less each word would weigh. `passages` are the texts of the
// first LEADING_PASSAGES, or all when there are fewer.
inline constexpr std::size_t LEADING_PASSAGES = 8;
std::string embeddedFile(std::string_view name, std::string_view summary,
                         const std::vector<std::string_view>& passages);

}  // namespace norvast::indexer
