// Summary lead: what stands before the sentences of a summary, for it says what the text is.
#pragma once

#include <string>
#include <string_view>

#include "indexer/analysis/outline.h"

namespace norvast::indexer {

inline constexpr std::size_t LONGEST_LEAD_CLUSTERS = 120;

// The title that the file gives itself, else the heading that its text begins with; of a mail the
// subject, with its sender in brackets. Empty when there is none, or none that says something:
// "Untitled", "Contents", a name of another file, such as programs leave. One line.
std::string summaryLead(const Outline& outline, std::string_view name);

}  // namespace norvast::indexer
