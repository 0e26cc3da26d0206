// Cosine similarity of two vectors: the plain rule, which every faster way must equal bit for bit.
#pragma once

#include <span>

namespace norvast {

// dot(a, b) / (|a| |b|) in single precision throughout, each sum taken in element order. 0 when the
// lengths differ or are 0, or when a norm is 0. Not clamped to [-1, 1]; NaN and infinity in, NaN or
// whatever the arithmetic gives out.
float cosine(std::span<const float> a, std::span<const float> b);

// The sum of squares in element order.
float squaredNorm(std::span<const float> a);

// The last step of the rule: from the dot product and both sums of squares.
float cosineFromSums(float dot, float squaredNormOfA, float squaredNormOfB);

}  // namespace norvast
