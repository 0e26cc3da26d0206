#include "embedding/safetensors.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <optional>
#include <utility>

#include "json/json_text.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr std::size_t LENGTH_BYTES = 8;
constexpr std::size_t LONGEST_HEADER_BYTES = std::size_t{1} << 20;
constexpr const char* DAMAGED = "Its model.safetensors is damaged or of another format.";

struct TypeName {
  std::string_view name;
  NumberType type;
  std::size_t bytes;
};

constexpr TypeName TYPES[] = {{"F64", NumberType::f64, 8},
                              {"F32", NumberType::f32, 4},
                              {"F16", NumberType::f16, 2},
                              {"I32", NumberType::i32, 4},
                              {"I8", NumberType::i8, 1}};

const TypeName* typeNamed(std::string_view name) {
  const auto* found = std::find_if(std::begin(TYPES), std::end(TYPES),
                                   [name](const TypeName& type) { return type.name == name; });
  return found == std::end(TYPES) ? nullptr : found;
}

template <typename Number>
Number littleEndianAt(std::string_view bytes, std::size_t at) {
  Number number = 0;
  for (std::size_t byte = sizeof(Number); byte > 0; --byte) {
    number = static_cast<Number>((std::uint64_t{number} << 8) |
                                 static_cast<unsigned char>(bytes[at + byte - 1]));
  }
  return number;
}

// IEEE 754 binary16 has a sign, 5 bits of exponent and 10 of fraction; binary32 8 and 23.
float half(std::uint16_t bits) {
  const std::uint32_t sign = std::uint32_t{bits} >> 15 << 31;
  const std::uint32_t exponent = (std::uint32_t{bits} >> 10) & 0x1F;
  const std::uint32_t fraction = std::uint32_t{bits} & 0x3FF;
  if (exponent == 0) {  // as many steps of 2^-24
    const float small = static_cast<float>(fraction) * 0x1p-24F;
    return sign != 0 ? -small : small;
  }
  const std::uint32_t rebiased = exponent == 0x1F ? 0xFF : exponent + 127 - 15;
  return std::bit_cast<float>(sign | rebiased << 23 | fraction << 13);
}

// Calls `use` with what gives the number at an index, so that a loop over them chooses once.
template <typename Use>
auto withNumbers(const Tensor& tensor, Use use) {
  const std::string_view bytes = tensor.bytes;
  switch (tensor.type) {
    case NumberType::f64:
      return use([bytes](std::size_t index) {
        return std::bit_cast<double>(littleEndianAt<std::uint64_t>(bytes, index * 8));
      });
    case NumberType::f32:
      return use([bytes](std::size_t index) {
        return double{std::bit_cast<float>(littleEndianAt<std::uint32_t>(bytes, index * 4))};
      });
    case NumberType::f16:
      return use([bytes](std::size_t index) {
        return double{half(littleEndianAt<std::uint16_t>(bytes, index * 2))};
      });
    case NumberType::i32:
      return use([bytes](std::size_t index) {
        return static_cast<double>(
            std::bit_cast<std::int32_t>(littleEndianAt<std::uint32_t>(bytes, index * 4)));
      });
    case NumberType::i8:
      break;
  }
  return use([bytes](std::size_t index) {
    return static_cast<double>(static_cast<signed char>(bytes[index]));
  });
}

// The numbers in a list, or nothing when one is none that counts.
std::optional<std::vector<std::size_t>> sizes(const std::optional<JsonText>& list) {
  if (!list) return std::nullopt;
  std::vector<std::size_t> sizes;
  for (const JsonText& element : list->elements()) {
    const auto size = element.wholeNumber();
    if (!size || *size < 0) return std::nullopt;
    sizes.push_back(static_cast<std::size_t>(*size));
  }
  return sizes;
}

// What a tensor of that shape takes, or nothing when that is more than `limit`.
std::optional<std::size_t> bytesOfShape(const std::vector<std::size_t>& shape, std::size_t bytes,
                                        std::size_t limit) {
  for (const std::size_t size : shape) {
    if (size != 0 && bytes > limit / size) return std::nullopt;
    bytes *= size;
  }
  return bytes <= limit ? std::optional(bytes) : std::nullopt;
}

// The tensor that a member of the header describes; nothing when it is not within the data.
std::optional<Tensor> tensorOf(const JsonText& description, const TypeName& type,
                               std::string_view data) {
  auto shape = sizes(description.member("shape"));
  const auto offsets = sizes(description.member("data_offsets"));
  if (!shape || !offsets || offsets->size() != 2) return std::nullopt;
  const std::size_t begin = offsets->front();
  const std::size_t end = offsets->back();
  if (begin > end || end > data.size()) return std::nullopt;
  if (bytesOfShape(*shape, type.bytes, data.size()) != end - begin) return std::nullopt;
  return Tensor{type.type, std::move(*shape), data.substr(begin, end - begin)};
}

}  // namespace

std::variant<Tensors, std::string> readSafetensors(std::string_view file) {
  if (file.size() < LENGTH_BYTES) return DAMAGED;
  const auto length = littleEndianAt<std::uint64_t>(file, 0);
  file.remove_prefix(LENGTH_BYTES);
  if (length > file.size() || length > LONGEST_HEADER_BYTES) return DAMAGED;

  const std::string_view text = file.substr(0, length);
  const auto header = validUtf8Length(text) == length ? JsonText::parse(text) : std::nullopt;
  if (!header || !header->isObject()) return DAMAGED;
  Tensors tensors;
  bool isSound = true;
  header->forEachMember([&](std::string name, const JsonText& description) {
    if (name == "__metadata__") return;
    const auto type = description.member("dtype");
    const TypeName* known = type ? typeNamed(type->string().value_or("")) : nullptr;
    if (known == nullptr) return;
    auto tensor = tensorOf(description, *known, file.substr(length));
    isSound = isSound && tensor;
    if (tensor) tensors.insert_or_assign(std::move(name), std::move(*tensor));
  });
  if (!isSound) return DAMAGED;
  return tensors;
}

double numberAt(const Tensor& tensor, std::size_t index) {
  return withNumbers(tensor, [index](auto at) { return at(index); });
}

void addNumbers(const Tensor& tensor, std::size_t start, double factor, std::span<double> sum) {
  withNumbers(tensor, [&](auto at) {
    for (std::size_t place = 0; place < sum.size(); ++place) {
      sum[place] += factor * at(start + place);
    }
  });
}

}  // namespace norvast
