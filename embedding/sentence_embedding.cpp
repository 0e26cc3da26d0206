#include "embedding/sentence_embedding.h"

#include <utility>
#include <variant>

#include "embedding/installed_model.h"

namespace norvast {
namespace {

// Stands between the name of the words' scheme and that of the model.
constexpr char PLUS = '+';

constexpr double MODEL_WEIGHT = 0.6;

// The name of the model in a scheme; empty when there is none.
std::string_view modelIn(std::string_view scheme) {
  const std::size_t plus = scheme.find(PLUS);
  return plus == std::string_view::npos ? std::string_view() : scheme.substr(plus + 1);
}

// The numbers of the words of a text, then those of the model.
std::vector<float> joined(const std::vector<double>& words, const StaticModel& model,
                          std::string_view text) {
  std::vector<float> vector(words.begin(), words.end());
  vector.resize(words.size() + model.size());
  const auto numbers = model.vector(text);
  for (std::size_t at = 0; numbers && at < numbers->size(); ++at) {
    vector[words.size() + at] = static_cast<float>(MODEL_WEIGHT * (*numbers)[at]);
  }
  return vector;
}

}  // namespace

struct ModelInUse {
  std::optional<InstalledModel> installed;
  std::string missed;  // the name of a model that the one installed turned out not to be

  bool is(std::string_view name) const { return installed && installed->name == name; }

  // Loads the installed model when it can be that of this name. A file that is there is read once
  // for each name.
  const StaticModel* named(std::string_view name) {
    if (!is(name) && missed != name && isModelInstalled()) {
      auto loaded = loadInstalledModel();
      if (auto* model = std::get_if<InstalledModel>(&loaded)) installed = std::move(*model);
      if (!is(name)) missed = name;
    }
    return is(name) ? &installed->model : nullptr;
  }
};

std::optional<SentenceEmbedding> SentenceEmbedding::english() {
  auto words = WordEmbedding::open();
  if (!words) return std::nullopt;
  return SentenceEmbedding(std::move(*words));
}

SentenceEmbedding::SentenceEmbedding(WordEmbedding words)
    : words_(std::move(words)), inUse_(std::make_unique<ModelInUse>()) {}
SentenceEmbedding::SentenceEmbedding(SentenceEmbedding&&) noexcept = default;
SentenceEmbedding& SentenceEmbedding::operator=(SentenceEmbedding&&) noexcept = default;
SentenceEmbedding::~SentenceEmbedding() = default;

std::optional<std::string> SentenceEmbedding::useInstalledModel() {
  auto loaded = loadInstalledModel();
  if (auto* why = std::get_if<std::string>(&loaded)) return std::move(*why);
  if (auto* model = std::get_if<InstalledModel>(&loaded)) inUse_->installed = std::move(*model);
  return std::nullopt;
}

std::string SentenceEmbedding::scheme() const {
  std::string scheme = EMBEDDING_SCHEME;
  if (inUse_->installed) scheme.append(1, PLUS).append(inUse_->installed->name);
  return scheme;
}

std::optional<std::vector<float>> SentenceEmbedding::vector(std::string_view text) const {
  auto whole = query(text, scheme());
  if (!whole) return std::nullopt;
  return std::move(whole->vector);
}

std::optional<SentenceQuery> SentenceEmbedding::query(
    std::string_view text, const std::optional<std::string>& indexScheme) const {
  const auto words = words_.vector(text);
  if (!words) return std::nullopt;
  const std::string_view name = indexScheme ? modelIn(*indexScheme) : std::string_view();
  const StaticModel* model = name.empty() ? nullptr : inUse_->named(name);
  if (model != nullptr) return SentenceQuery{joined(*words, *model, text)};
  SentenceQuery query{{words->begin(), words->end()}};
  if (!name.empty()) query.storedNumbers = query.vector.size();
  return query;
}

}  // namespace norvast
