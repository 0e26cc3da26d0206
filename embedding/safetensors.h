// Safetensors: the named tables of numbers in a file of that format.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace norvast {

enum class NumberType : std::uint8_t { f64, f32, f16, i32, i8 };

struct Tensor {
  NumberType type = NumberType::f32;
  std::vector<std::size_t> shape;
  std::string_view bytes;  // little-endian, row by row; owned by the file's bytes
};

using Tensors = std::map<std::string, Tensor, std::less<>>;

// The tensors in the bytes of a file, or one sentence that says why it holds none. Each lies within
// the bytes and is as long as its shape says; those of other types of numbers are left out. The
// format: 8 bytes with the length of the header, least
// significant first; the header, a JSON object; the data. Source: the public description at
// https://huggingface.co/docs/safetensors.
std::variant<Tensors, std::string> readSafetensors(std::string_view file);

// The number at `index` of a tensor, which must have so many.
double numberAt(const Tensor& tensor, std::size_t index);

// Adds the numbers from `start` on, each times the factor, to those of `sum`, one to each. The
// tensor must have so many.
void addNumbers(const Tensor& tensor, std::size_t start, double factor, std::span<double> sum);

}  // namespace norvast
