// Installed model: the static model that the user put beside the index.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "embedding/static_model.h"
#include "platform/folders.h"

namespace norvast {

struct InstalledModel {
  // "static-1:", the SHA-256 of tokenizer.json followed by model.safetensors in hexadecimal, ":"
  // and how many numbers a vector has. The same name means the same vectors.
  std::string name;
  StaticModel model;
};

// Nothing is installed.
struct NoModel {};

// The model in Norvast/model under Application Support: the files tokenizer.json, of at most 16
// MiB, and model.safetensors, of at most 160 MiB. Or why it cannot be used, in one sentence for the
// user. Reads both files whole.
std::variant<NoModel, InstalledModel, std::string> loadInstalledModel();

// Which files these are, told without reading them; nothing for one that is not there.
struct ModelFiles {
  std::optional<FileVersion> tokenizer;
  std::optional<FileVersion> table;

  bool operator==(const ModelFiles&) const = default;
};

ModelFiles modelFiles();

}  // namespace norvast
