#include "indexer/console/audit_view.h"

#include <string_view>

#include "indexer/console/json_output.h"
#include "indexer/console/local_time.h"
#include "indexer/console/terminal.h"
#include "text/internet_date_time.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

// Widths of the columns: the longest time, verb and result that the server writes.
constexpr std::size_t TIME_CLUSTERS = 19;
constexpr std::size_t VERB_CLUSTERS = 14;
constexpr std::size_t RESULT_CLUSTERS = 29;

std::string padded(std::string text, std::size_t width) {
  const std::size_t clusters = countClusters(text);
  if (clusters < width) text.append(width - clusters, ' ');
  return text;
}

Colour colourOf(std::string_view severity) {
  if (severity == "deny") return Colour::red;
  return severity == "warn" ? Colour::yellow : Colour::plain;
}

}  // namespace

std::string eventLine(const TrailEvent& event) {
  const std::string line = padded(localTime(event.time, "%Y-%m-%d %H:%M:%S"), TIME_CLUSTERS) +
                           "  " + padded(printable(event.verb), VERB_CLUSTERS) + "  " +
                           padded(printable(event.result), RESULT_CLUSTERS) + "  " +
                           printable(event.object);
  return coloured(line, colourOf(event.severity)) + "\n";
}

std::string eventJson(const TrailEvent& event) {
  return jsonLine(Json::Object{{"time", internetDateTime(event.time)},
                               {"verb", event.verb},
                               {"object", event.object},
                               {"result", event.result},
                               {"severity", event.severity}});
}

}  // namespace norvast::indexer
