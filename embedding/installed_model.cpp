#include "embedding/installed_model.h"

#include <nettle/sha2.h>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/folders.h"
#include "platform/regular_file.h"

namespace norvast {
namespace {

constexpr std::uint64_t MEBIBYTE = std::uint64_t{1} << 20;
constexpr std::uint64_t MOST_TOKENIZER_BYTES = 16 * MEBIBYTE;
constexpr std::uint64_t MOST_TABLE_BYTES = 160 * MEBIBYTE;
constexpr std::string_view KIND = "static-1:";

struct Paths {
  std::string tokenizer;
  std::string table;
};

std::optional<Paths> paths() {
  const auto support = applicationSupportDirectory();
  if (!support) return std::nullopt;
  const std::string folder = *support + "/Norvast/model/";
  return Paths{folder + "tokenizer.json", folder + "model.safetensors"};
}

std::string hexadecimal(const std::array<std::uint8_t, SHA256_DIGEST_SIZE>& bytes) {
  constexpr std::string_view DIGITS = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += DIGITS[byte >> 4];
    text += DIGITS[byte & 0xF];
  }
  return text;
}

void add(sha256_ctx& hash, const std::vector<char>& bytes) {
  sha256_update(&hash, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
}

std::string sha256(const std::vector<char>& first, const std::vector<char>& second) {
  sha256_ctx hash;
  sha256_init(&hash);
  add(hash, first);
  add(hash, second);
  std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
  sha256_digest(&hash, digest.size(), digest.data());
  return hexadecimal(digest);
}

std::string unusable(const std::string& why) {
  return "The model beside the index is not used. " + why;
}

std::string unreadable(const char* file, std::uint64_t limitBytes) {
  return unusable(std::string("Its ") + file + " cannot be read, or has more than " +
                  std::to_string(limitBytes / MEBIBYTE) + " MiB.");
}

}  // namespace

std::variant<NoModel, InstalledModel, std::string> loadInstalledModel() {
  const auto files = paths();
  if (!files || modelFiles() == ModelFiles()) return NoModel();
  const auto tokenizer = readRegularFile(files->tokenizer, MOST_TOKENIZER_BYTES);
  if (!tokenizer) return unreadable("tokenizer.json", MOST_TOKENIZER_BYTES);
  auto table = readRegularFile(files->table, MOST_TABLE_BYTES);
  if (!table) return unreadable("model.safetensors", MOST_TABLE_BYTES);

  const std::string digest = sha256(*tokenizer, *table);
  auto model = StaticModel::fromFiles(std::string_view(tokenizer->data(), tokenizer->size()),
                                      std::move(*table));
  if (const auto* why = std::get_if<std::string>(&model)) return unusable(*why);
  StaticModel& usable = std::get<StaticModel>(model);
  std::string name = std::string(KIND) + digest + ":" + std::to_string(usable.size());
  return InstalledModel{std::move(name), std::move(usable)};
}

ModelFiles modelFiles() {
  const auto files = paths();
  if (!files) return {};
  return {fileVersion(files->tokenizer), fileVersion(files->table)};
}

}  // namespace norvast
