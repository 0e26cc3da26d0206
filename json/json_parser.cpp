#include "json/json_parser.h"

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "json/json_cursor.h"

namespace norvast {
namespace {

using Library = nlohmann::json;

// Builds our value from the parser's events; a `false` ends the parse as failed.
class ValueBuilder final : public nlohmann::json_sax<Library> {
 public:
  Json take() { return std::move(root_); }

  bool null() override { return add(nullptr); }
  bool boolean(bool value) override { return add(value); }
  // Called for integers with a minus sign alone, so zero was written -0.
  bool number_integer(number_integer_t value) override {
    return value == 0 ? add(Json::Text{"-0"}) : add(value);
  }
  bool number_unsigned(number_unsigned_t value) override {
    if (std::in_range<std::int64_t>(value)) return add(value);
    return add(Json::Text{std::to_string(value)});
  }
  // Fractions, exponents, and integers beyond 64 bits.
  bool number_float(number_float_t /*value*/, const string_t& text) override {
    return add(Json::Text{text});
  }
  bool string(string_t& value) override { return add(std::move(value)); }
  bool binary(binary_t& /*value*/) override { return false; }

  bool start_object(std::size_t /*size*/) override { return enter(Json::Object()); }
  bool key(string_t& value) override {
    key_ = std::move(value);
    return true;
  }
  bool end_object() override { return leave(); }
  bool start_array(std::size_t /*size*/) override { return enter(Json::Array()); }
  bool end_array() override { return leave(); }

  bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                   const nlohmann::detail::exception& /*error*/) override {
    return false;
  }

 private:
  // The new value's place stays valid while it is the innermost open one: its parent grows only
  // after it has been left.
  Json* place(Json value) {
    if (open_.empty()) {
      root_ = std::move(value);
      return &root_;
    }
    if (Json::Array* array = open_.back()->array()) return &array->emplace_back(std::move(value));
    return &open_.back()
                ->object()
                ->insert_or_assign(std::move(key_), std::move(value))
                .first->second;
  }

  bool add(Json value) {
    (void)place(std::move(value));  // a scalar is never entered
    return true;
  }

  bool enter(Json container) {
    if (open_.size() == JSON_NESTING_LIMIT) return false;
    open_.push_back(place(std::move(container)));
    return true;
  }

  bool leave() {
    open_.pop_back();
    return true;
  }

  Json root_;
  std::vector<Json*> open_;
  std::string key_;
};

}  // namespace

std::optional<Json> parseJson(std::string_view text) {
  // The library takes a NUL for the end of the text and skips a byte-order mark.
  constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
  if (text.find('\0') != std::string_view::npos || text.starts_with(BYTE_ORDER_MARK))
    return std::nullopt;

  ValueBuilder builder;
  if (!Library::sax_parse(text.begin(), text.end(), &builder)) return std::nullopt;
  return builder.take();
}

}  // namespace norvast
