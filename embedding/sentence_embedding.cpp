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
  ModelFiles files;  // what was read
  std::variant<NoModel, InstalledModel, std::string> loaded;

  // Looks first which files there are: one that changes while it is read is read again.
  void update() {
    ModelFiles present = modelFiles();
    if (present == files) return;
    files = present;
    loaded = NoModel();  // the memory of one model is enough
    loaded = loadInstalledModel();
  }

  const InstalledModel* installed() const { return std::get_if<InstalledModel>(&loaded); }

  // The model of this name, looked for among the files when it is not the one at hand.
  const StaticModel* named(std::string_view name) {
    if (installed() == nullptr || installed()->name != name) update();
    return installed() != nullptr && installed()->name == name ? &installed()->model : nullptr;
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
  inUse_->update();
  const auto* why = std::get_if<std::string>(&inUse_->loaded);
  return why == nullptr ? std::nullopt : std::optional(*why);
}

std::string SentenceEmbedding::scheme() const {
  std::string scheme = EMBEDDING_SCHEME;
  if (const auto* model = inUse_->installed()) scheme.append(1, PLUS).append(model->name);
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
