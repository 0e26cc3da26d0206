// Ordered value: a stored value in its place of SQL's ORDER BY.
#pragma once

#include <string>
#include <variant>

namespace norvast {

struct OrderedBlob {
  std::string bytes;
  auto operator<=>(const OrderedBlob&) const = default;
};

// NULL before numbers before texts before blobs (https://www.sqlite.org/datatype3.html, section
// 4.1), which is the order of the alternatives. Numbers of both kinds compare exactly where a long
// double has 64 bits to its mantissa.
using OrderedValue = std::variant<std::monostate, long double, std::string, OrderedBlob>;

}  // namespace norvast
