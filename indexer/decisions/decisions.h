// Decisions: the roots and rules of the user, as the index keeps them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "indexer/decisions/rules.h"
#include "store/connection.h"

namespace norvast::indexer {

// What git ignores in a work tree is passed over, or indexed like everything else.
enum class GitIgnored { leftOut, indexed };

// A file or folder that is indexed with all that is below it.
struct Root {
  std::string path;  // absolute and free of links
  GitIgnored gitIgnored = GitIgnored::leftOut;
  std::vector<std::string> exclusions;  // shell patterns (indexer/decisions/exclusions.h)
};

struct Decisions {
  std::vector<Root> roots;  // in the byte order of their paths
  Rules rules;

  // The root that the path lies in: the innermost where they lie in one another. The pointer lives
  // as long as the roots do.
  const Root* rootOf(const std::string& path) const;

  bool isRoot(const std::string& path) const;
  bool hasRootBelow(const std::string& path) const;

  // The roots at and below the path.
  std::vector<Root> rootsWithin(const std::string& path) const;

  // Whether the path lies in a root and no rule leaves it out.
  bool isIndexed(const std::string& path) const;
};

// All decisions as they stand. Nothing when they could not be read whole: an index without some of
// them would show what was withheld.
std::optional<Decisions> readDecisions(const Connection& index);

// The decisions of an index that other programs may change meanwhile, read again only then. Within
// a transaction they hold until its end.
class CurrentDecisions {
 public:
  explicit CurrentDecisions(const Connection& index) : index_(index) {}

  // Nothing when they could not be read. The pointer lives until the next call. Changes through the
  // same connection are not noticed: whoever makes one makes it here, too, or lets all be
  // forgotten.
  Decisions* get();
  void forget() { version_ = -1; }

  const Connection& index() const { return index_; }

 private:
  const Connection& index_;
  std::int64_t version_ = -1;
  std::optional<Decisions> decisions_;
};

// Each within the caller's transaction, which must not be committed when it is false.
// With the identity of what lies there now.
bool storeRule(const Connection& index, const Rule& rule);
bool dropRule(const Connection& index, const std::string& path);
bool storeRoot(const Connection& index, const Root& root);
// The roots at and below the path with their exclusions and all rules in them, and the nominations
// that lie there outside of any root. What is withheld or left out outside stays so.
bool dropRoots(const Connection& index, const std::string& path);

}  // namespace norvast::indexer
