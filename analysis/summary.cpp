#include "analysis/summary.h"

#include <algorithm>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/text_blocks.h"
#include "text/content_terms.h"
#include "text/sentences.h"
#include "text/unicode.h"

namespace norvast {
namespace {

constexpr std::size_t LEADING_BYTES = 50'000;
constexpr std::size_t MOST_SENTENCES = 3;
constexpr std::size_t FEWEST_TERMS = 3;  // of a sentence that says something

struct Candidate {
  std::string text;
  std::vector<std::string> terms;
};

using Probabilities = std::unordered_map<std::string, double>;

bool endsAsSentence(std::string_view sentence) {
  while (sentence.ends_with('"') || sentence.ends_with(')')) sentence.remove_suffix(1);
  for (const std::string_view end : {".", "!", "?", "…", "。", "！", "？"}) {
    if (sentence.ends_with(end)) return true;
  }
  return false;
}

std::vector<Candidate> candidatesOf(std::string_view text) {
  std::vector<Candidate> candidates;
  for (const std::string& block : blocksOf(text)) {
    for (const std::string_view sentence : sentencesOf(block)) {
      if (!endsAsSentence(sentence) || countClusters(sentence) > LONGEST_SUMMARY_CLUSTERS) continue;
      std::vector<std::string> terms = contentTerms(sentence);
      if (terms.size() < FEWEST_TERMS) continue;
      candidates.push_back({std::string(sentence), std::move(terms)});
    }
  }
  return candidates;
}

Probabilities probabilitiesOf(const std::vector<Candidate>& candidates) {
  Probabilities probabilities;
  double total = 0;
  for (const Candidate& candidate : candidates) {
    for (const std::string& term : candidate.terms) {
      probabilities[term] += 1;
      total += 1;
    }
  }
  for (auto& entry : probabilities) entry.second /= total;
  return probabilities;
}

double averageProbability(const Candidate& candidate, const Probabilities& probabilities) {
  double sum = 0;
  for (const std::string& term : candidate.terms) sum += probabilities.at(term);
  return sum / static_cast<double>(candidate.terms.size());
}

// The most probable term of the sentences that still fit; the first in byte order of equal ones.
std::string bestTerm(const std::vector<Candidate>& candidates, const std::vector<bool>& fits,
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

std::optional<std::size_t> bestSentence(const std::vector<Candidate>& candidates,
                                        const std::vector<bool>& fits,
                                        const Probabilities& probabilities) {
  const std::string term = bestTerm(candidates, fits, probabilities);
  std::optional<std::size_t> best;
  double highest = -1;
  for (std::size_t at = 0; at < candidates.size(); ++at) {
    const auto& terms = candidates[at].terms;
    if (!fits[at] || std::find(terms.begin(), terms.end(), term) == terms.end()) continue;
    const double average = averageProbability(candidates[at], probabilities);
    if (average <= highest) continue;
    best = at;
    highest = average;
  }
  return best;
}

std::set<std::size_t> chooseSentences(const std::vector<Candidate>& candidates) {
  Probabilities probabilities = probabilitiesOf(candidates);
  std::vector<std::size_t> lengths;
  lengths.reserve(candidates.size());
  for (const Candidate& candidate : candidates) lengths.push_back(countClusters(candidate.text));

  std::set<std::size_t> chosen;
  std::size_t left = LONGEST_SUMMARY_CLUSTERS;
  while (chosen.size() < MOST_SENTENCES) {
    std::vector<bool> fits(candidates.size());
    for (std::size_t at = 0; at < candidates.size(); ++at) {
      fits[at] = !chosen.contains(at) && lengths[at] + 1 <= left;
    }
    const auto next = bestSentence(candidates, fits, probabilities);
    if (!next) break;
    chosen.insert(*next);
    left -= lengths[*next] + 1;
    for (const std::string& term : candidates[*next].terms) {
      probabilities[term] *= probabilities[term];
    }
  }
  return chosen;
}

std::string firstLines(std::string_view text) {
  std::string lines;
  for (const std::string_view line : linesOf(text)) {
    if (line.empty()) continue;
    if (!lines.empty()) lines += ' ';
    lines.append(line);
    if (lines.size() > 4 * LONGEST_SUMMARY_CLUSTERS) break;
  }
  lines.resize(firstClusters(lines, LONGEST_SUMMARY_CLUSTERS).size());
  return lines;
}

}  // namespace

std::string summarize(std::string_view text) {
  text = text.substr(0, firstClusters(text.substr(0, LEADING_BYTES), LEADING_BYTES).size());
  const std::vector<Candidate> candidates = candidatesOf(text);
  if (candidates.empty()) return firstLines(text);

  std::string summary;
  for (const std::size_t at : chooseSentences(candidates)) {
    if (!summary.empty()) summary += ' ';
    summary += candidates[at].text;
  }
  return summary;
}

}  // namespace norvast
