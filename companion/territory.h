// Territory: what of a root is indexed by its scan, as far as the user decided that.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "companion/decisions.h"
#include "companion/file_scan.h"

namespace norvast {

// The folder of the index, free of links; nothing as long as there is none.
std::optional<std::string> indexFolder();

// Leaves out what a rule leaves out, what lies in another root within this one, and the folder of
// the index itself. The decisions outlive it.
class Territory : public ScanFilter {
 public:
  explicit Territory(const Decisions& decisions);

  bool enters(const std::string& folder) override;
  bool takes(const std::string& path, std::string_view name, EntryKind kind) override;

 private:
  bool isLeftOut(const std::string& path) const;

  const Decisions& decisions_;
  std::optional<std::string> ownFolder_;  // of the index
  // Of the folder entered last: a rule leaves it out; nothing is decided about a part of it.
  bool isLeftOut_ = false;
  bool isPlain_ = false;
};

}  // namespace norvast
