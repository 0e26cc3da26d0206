#include "indexer/analysis/summary.h"

#include <algorithm>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

#include "indexer/analysis/lines.h"
#include "indexer/analysis/summary_lead.h"
#include "indexer/analysis/summary_sentences.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t LEADING_BYTES = 50'000;
constexpr std::size_t MOST_SENTENCES = 3;

using Candidates = std::vector<SummarySentence>;
using Probabilities = std::unordered_map<std::string, double>;

Probabilities probabilitiesOf(const Candidates& candidates) {
  Probabilities probabilities;
  double total = 0;
  for (const SummarySentence& candidate : candidates) {
    for (const std::string& term : candidate.terms) {
      probabilities[term] += 1;
      total += 1;
    }
  }
  for (auto& entry : probabilities) entry.second /= total;
  return probabilities;
}

double averageProbability(const SummarySentence& candidate, const Probabilities& probabilities) {
  double sum = 0;
  for (const std::string& term : candidate.terms) sum += probabilities.at(term);
  return sum / static_cast<double>(candidate.terms.size());
}

// The most probable term of the sentences that still fit; the first in byte order of equal ones.
std::string bestTerm(const Candidates& candidates, const std::vector<bool>& fits,
                     const Probabilities& probabilities) {
  std::string best;
  double highest = -1;
  for (std::size_t at = 0; at < candidates.size(); ++at) {
    if (!fits[at]) continue;
    for (const std::string& term : candidates[at].terms) {
      const double probability = probabilities.at(term);
      if (probability < highest || (probability == highest && term >= best)) continue;
      best = term;
      highest = probability;
    }
  }
  return best;
}

std::optional<std::size_t> bestSentence(const Candidates& candidates, const std::vector<bool>& fits,
                                        const Probabilities& probabilities) {
  const std::string term = bestTerm(candidates, fits, probabilities);
  std::optional<std::size_t> best;
  double highest = -1;
  for (std::size_t at = 0; at < candidates.size(); ++at) {
    const auto& terms = candidates[at].terms;
    if (!fits[at] || std::find(terms.begin(), terms.end(), term) == terms.end()) continue;
    const double weight = averageProbability(candidates[at], probabilities) *
                          candidates[at].weight * (1 + 1 / static_cast<double>(at + 1));
    if (weight <= highest) continue;
    best = at;
    highest = weight;
  }
  return best;
}

std::set<std::size_t> chooseSentences(const Candidates& candidates, std::size_t left) {
  Probabilities probabilities = probabilitiesOf(candidates);
  std::set<std::size_t> chosen;
  while (chosen.size() < MOST_SENTENCES) {
    std::vector<bool> fits(candidates.size());
    for (std::size_t at = 0; at < candidates.size(); ++at) {
      fits[at] = !chosen.contains(at) && candidates[at].clusters + 1 <= left;
    }
    const auto next = bestSentence(candidates, fits, probabilities);
    if (!next) break;
    chosen.insert(*next);
    left -= candidates[*next].clusters + 1;
    for (const std::string& term : candidates[*next].terms) {
      probabilities[term] *= probabilities[term];
    }
  }
  return chosen;
}

// Cells and rows are told apart by commas and semicolons, a name from what it names by a colon.
std::string firstLines(const Outline& outline) {
  std::string lines;
  bool isName = false;
  for (const Stretch& stretch : outline.stretches) {
    if (lines.size() > 4 * LONGEST_SUMMARY_CLUSTERS) break;
    const bool isRow = stretch.kind == Stretch::Kind::tableRow;
    for (const std::string_view line :
         linesOf(outline.textOf(stretch).substr(0, 4 * LONGEST_SUMMARY_CLUSTERS))) {
      if (line.empty()) continue;
      if (!lines.empty()) lines += isName ? ": " : isRow ? "; " : " ";
      isName = false;
      for (const char character : line) {
        lines += character == '\t' ? std::string_view(", ") : std::string_view(&character, 1);
      }
    }
    isName = stretch.kind == Stretch::Kind::part || stretch.kind == Stretch::Kind::heading;
  }
  return lines;
}

std::string chosenText(const Candidates& candidates, std::size_t left) {
  std::string text;
  for (const std::size_t at : chooseSentences(candidates, left)) {
    if (!text.empty()) text += ' ';
    text += candidates[at].text;
  }
  return text;
}

}  // namespace

std::string summarize(const Outline& outline, std::string_view name, const Language& language) {
  std::string lead = summaryLead(outline, name);
  const std::size_t left = LONGEST_SUMMARY_CLUSTERS - countClusters(lead) - 2;
  const Candidates candidates = summarySentences(outline, language, LEADING_BYTES);
  std::string gist = chosenText(candidates, left);
  if (gist.empty()) gist = firstLines(outline);
  if (gist.starts_with(lead)) lead.clear();
  if (!lead.empty() && !gist.empty()) lead += ": ";
  lead += gist;
  lead.resize(firstClusters(lead, LONGEST_SUMMARY_CLUSTERS).size());
  return lead;
}

}  // namespace norvast::indexer
