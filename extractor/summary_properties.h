// Summary properties: what older office files say of themselves in their property set
// ([MS-OLEPS]).
#pragma once

#include <string>
#include <string_view>

namespace norvast {

struct SummaryProperties {
  std::string title;  // UTF-8; empty when it is not told
  std::string author;
};

// Of the stream "\005SummaryInformation". Any bytes do.
SummaryProperties summaryProperties(std::string_view stream);

}  // namespace norvast
