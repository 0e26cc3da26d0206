// JSON value: what every answer is built from.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace norvast {

// One JSON value of any type. Strings are UTF-8. Copying, comparing and destroying recurse over
// the nesting.
class Json {
 public:
  using Array = std::vector<Json>;
  // Sorted by key, byte-wise.
  using Object = std::map<std::string, Json, std::less<>>;
  // A value that is JSON text already, and is written as it stands.
  struct Text {
    std::string text;
  };
  using Value =
      std::variant<std::nullptr_t, bool, std::int64_t, double, Text, std::string, Array, Object>;

  Json() = default;
  Json(std::nullptr_t) {}
  Json(std::same_as<bool> auto value) : value_(value) {}
  Json(std::integral auto value) requires(!std::same_as<decltype(value), bool>)
      : value_(static_cast<std::int64_t>(value)) {}
  Json(double value) : value_(value) {}
  Json(Text value) : value_(std::move(value)) {}
  Json(std::string value) : value_(std::move(value)) {}
  Json(std::string_view value) : value_(std::string(value)) {}
  Json(const char* value) : value_(std::string(value)) {}
  Json(Array value) : value_(std::move(value)) {}
  Json(Object value) : value_(std::move(value)) {}

  const Value& value() const { return value_; }

  // The value when it is of that type, else nullptr. Owned by this value.
  const std::string* string() const { return std::get_if<std::string>(&value_); }
  const bool* boolean() const { return std::get_if<bool>(&value_); }
  const Object* object() const { return std::get_if<Object>(&value_); }

 private:
  Value value_ = nullptr;
};

// The member of that key, or nullptr. Owned by the object.
inline const Json* member(const Json::Object& object, std::string_view key) {
  const auto found = object.find(key);
  return found == object.end() ? nullptr : &found->second;
}

}  // namespace norvast
