#include "indexer/analysis/embedded_text.h"

#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t LEADING_CHARACTERS = 2000;

}  // namespace

std::string embeddedPassage(std::string_view name, std::string_view title, std::string_view heading,
                            std::string_view text) {
  std::string embedded(name);
  if (text.find(title) == std::string_view::npos) embedded.append("\n").append(title);
  if (heading != title && text.find(heading) == std::string_view::npos) {
    embedded.append("\n").append(heading);
  }
  return embedded.append("\n").append(text);
}

std::string embeddedFile(std::string_view name, std::string_view summary,
                         const std::vector<std::string_view>& passages) {
  std::string leading;
  for (const std::string_view passage : passages) leading.append(passage).append("\n");
  std::string embedded(name);
  embedded.append("\n").append(summary).append("\n");
  return embedded.append(firstClusters(leading, LEADING_CHARACTERS));
}

}  // namespace norvast::indexer
