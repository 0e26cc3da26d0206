// Exclusions: shell patterns by which the user leaves files and folders out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/entry_kind.h"

namespace norvast::indexer {

// A shell pattern (`*`, `?`, `[...]`; fnmatch(3)). Without a solidus it is for names at any depth;
// with one for the whole path below the root, where `*` and `?` stop at a solidus. One that ends in
// a solidus is for folders alone.
struct Exclusion {
  std::string root;
  std::string pattern;

  // `path` lies below the root; `name` is its last part.
  bool matches(std::string_view path, std::string_view name, EntryKind kind) const;
};

// The patterns of the root, and those of roots further out, which hold in it, too.
std::vector<Exclusion> exclusionsFor(const Decisions& decisions, const Root& root);

// Whether such a pattern leaves out the file, or a folder between its root and it.
bool isExcluded(const Decisions& decisions, const std::string& file);

}  // namespace norvast::indexer
