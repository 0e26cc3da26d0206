// Decision changes: what commands make of the user's decisions, each in one transaction with what
// clients see by them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/exposure.h"
#include "store/connection.h"

namespace norvast::indexer {

// Rules of one kind that stay as they are below a path that another rule was set for.
struct StayingRules {
  RuleKind kind = RuleKind::withheld;
  std::vector<std::string> paths;  // in byte order, never none
};

struct DecisionChange {
  std::uint64_t files = 0;              // indexed ones for which the changed rule holds
  std::vector<StayingRules> staying;    // one for each kind
  bool isIndexedAgain = false;          // the path was left out, and is withheld from now on
  std::optional<std::string> obstacle;  // why the index could not be written; nothing was changed
};

// What `add` decides besides that the path is a root. What is not said stays as it was.
struct AddChoices {
  std::optional<Nomination> nomination;
  std::optional<GitIgnored> gitIgnored;
  std::vector<std::string> exclusions;              // to be remembered
  std::vector<std::string> noExclusions;            // to be forgotten
  std::optional<std::string> recognitionLanguages;  // of the whole index: see store/settings.h
};

// All paths are absolute and free of links. The decisions at hand are changed along with the index.

// Makes the path a root. One that was left out is withheld from now on, when nothing else is said:
// indexing it again is no leave to show it.
DecisionChange addRoot(CurrentDecisions& current, const std::string& path,
                       const AddChoices& choices);

// Gives the path that rule. Rules below it stay.
DecisionChange decide(CurrentDecisions& current, const Rule& rule);

// Lets the path be indexed no longer: the roots at and below it go with the rules there; in a root
// that lies further out it is left out from now on. Clients no longer see its files, whose rows are
// for the caller to remove (indexer/indexing/index_files.h).
DecisionChange leaveOut(CurrentDecisions& current, const std::string& path);

// Drops the rule for the path itself, so that the one above it holds again.
DecisionChange dropDecision(CurrentDecisions& current, const std::string& path);

}  // namespace norvast::indexer
