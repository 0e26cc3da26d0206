// Sentences: where the sentences of a text end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// The sentences of a UTF-8 text in order (UAX #29, and the abbreviations of a language by its two
// letters: "en"; ISO 639-1), each without the white space around it; none is empty. A line break
// ends a sentence. Views into `text`.
std::vector<std::string_view> sentencesOf(std::string_view text, const std::string& language);

}  // namespace norvast
