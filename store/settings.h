// Settings: short texts by name that the index keeps beside its tables, such as how it was filled.
#pragma once

#include <optional>
#include <string>

#include "store/connection.h"

namespace norvast {

// Of which scheme the stored vectors are (embedding/sentence_embedding.h).
inline constexpr const char* EMBEDDING_SCHEME_SETTING = "embedding_scheme";

// In which languages text is recognised in pictures, where the user chose them: names of the
// recogniser's models, joined by "+".
inline constexpr const char* RECOGNITION_LANGUAGES_SETTING = "recognition_languages";

// The value of that name. Nothing when there is none, or the index holds no settings.
std::optional<std::string> setting(const Connection& index, const std::string& name);

// Stores the value, over an earlier one; in the caller's transaction where there is one. False when
// the index could not be written. Settings outlive every change of the tables' layout.
bool storeSetting(const Connection& index, const std::string& name, const std::string& value);

}  // namespace norvast
