// Meeting filter: tells the finder of moved rules of all that a scan comes to.
#pragma once

#include <string>
#include <string_view>

#include "indexer/decisions/moved_rules.h"
#include "indexer/indexing/file_scan.h"

namespace norvast::indexer {

// Lets such a finder meet all that a scan comes to, besides what another filter does.
class MeetingFilter : public ScanFilter {
 public:
  MeetingFilter(ScanFilter& filter, MovedRules& moved) : filter_(filter), moved_(moved) {}

  bool enters(const std::string& folder) override;
  bool takes(const std::string& path, std::string_view name, EntryKind kind) override;

 private:
  ScanFilter& filter_;
  MovedRules& moved_;
};

}  // namespace norvast::indexer
