// Moved rules: what was decided for a file or folder goes with it when it is renamed or moved.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "indexer/decisions/rules.h"
#include "store/connection.h"

namespace norvast::indexer {

// The rules to be added when all that lies at `from` has moved to `to`; those for the old place
// stay. What withholds or leaves out is always carried, unless even less is shown at the new place.
// What was withheld by a rule further out than `from` stays withheld, too. A nomination is carried
// only where the next rule further out is the same or was carried, too: a folder that is put away
// where nothing is shown is to be seen no longer.
std::vector<Rule> carriedRules(Rules rules, const std::string& from, const std::string& to);

struct MovedRule {
  std::string from;
  Rule rule;  // for the place where that lies now
};

// Adds those rules, within the caller's transaction and with what clients see by them, unless the
// user decided about the new place since then. Nothing when the index could not be read or written.
std::optional<std::vector<MovedRule>> carryRules(const Connection& index, const std::string& from,
                                                 const std::string& to);

// True if the rule for the path was made for what lies there now.
bool isDecided(const Connection& index, const std::string& path);

struct CarriedRules {
  std::vector<MovedRule> rules;         // those that were added
  std::optional<std::string> obstacle;  // why none were
};

// Finds what is withheld or left out again when it was moved while nothing watched, by its identity
// (platform/file_identity.h).
class MovedRules {
 public:
  explicit MovedRules(const Connection& index) : index_(index) { look(); }

  // Finds out what lies no more where it was decided about.
  void look();

  // Something that a scan comes to.
  void meet(const std::string& path);

  // Carries the rules for all that was met, in one transaction. Where the index could not be read
  // or written, what was met must not be shown.
  CarriedRules carry();

  // To be called when all roots were looked through: where something else lies at the path of a
  // rule, what is missed still is gone, and the rule stands from now on for what lies there. Where
  // nothing does it is looked for in each run, for it may come back from outside the roots.
  void giveUp();

 private:
  const Connection& index_;
  std::optional<std::string> obstacle_;        // why the rules could not be read
  std::map<std::string, std::string> missed_;  // paths of rules, by the identity of what they lost
  std::map<std::string, std::string> met_;     // where that lies now, by the paths of rules
  std::vector<std::string> stale_;             // paths of rules that something else lies at now
};

}  // namespace norvast::indexer
