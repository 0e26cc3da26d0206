// Rules: what the user decided about paths. For a file the rule of its nearest ancestor holds, its
// own before all; where there is none, AI clients do not see it.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::indexer {

enum class RuleKind {
  content,   // AI clients may read it
  metadata,  // they may know its name, size, time and summary
  withheld,  // indexed, and not shown to them
  leftOut,   // not indexed at all
};

// As the index stores it, and the user reads it: "content", "metadata", "withheld", "left out".
std::string_view ruleName(RuleKind kind);
std::optional<RuleKind> ruleNamed(std::string_view name);

// True if a rule of the first kind shows clients less of a file than one of the second.
bool showsLess(RuleKind one, RuleKind other);

struct Rule {
  std::string path;  // absolute; a file or a folder with all that is below it
  RuleKind kind = RuleKind::withheld;

  bool operator==(const Rule&) const = default;
};

class Rules {
 public:
  void set(const std::string& path, RuleKind kind) { kinds_[path] = kind; }
  void clear(const std::string& path) { kinds_.erase(path); }

  // The rule for exactly that path.
  std::optional<RuleKind> at(std::string_view path) const;

  // The rule that holds for the path: its own, or else that of its nearest ancestor.
  std::optional<Rule> holdingFor(std::string_view path) const;

  // The rules for what lies below the path, in the byte order of their paths; its own is not one.
  std::vector<Rule> below(const std::string& path) const;

  bool hasBelow(const std::string& path) const;

  std::vector<Rule> all() const;

 private:
  std::map<std::string, RuleKind, std::less<>> kinds_;
};

// The folder that holds an absolute path; "/" for one at the top. Nothing for "/" itself.
std::optional<std::string_view> parentOf(std::string_view path);

}  // namespace norvast::indexer
