#include "indexer/console/count_row.h"

#include <algorithm>

#include "indexer/console/terminal.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t NAME_WIDTH = 16;
constexpr std::size_t NUMBER_WIDTH = 9;

}  // namespace

std::string countRow(const std::string& name, std::uint64_t number) {
  const std::string digits = grouped(number);
  const auto blanks = [](std::size_t width, std::size_t used) {
    return std::string(width - std::min(width, used), ' ');
  };
  return name + blanks(NAME_WIDTH, name.size()) + blanks(NUMBER_WIDTH, digits.size()) + digits +
         "\n";
}

}  // namespace norvast::indexer
