#include "indexer/indexing/meeting_filter.h"

namespace norvast::indexer {

bool MeetingFilter::enters(const std::string& folder) {
  moved_.meet(folder);
  return filter_.enters(folder);
}

bool MeetingFilter::takes(const std::string& path, std::string_view name, EntryKind kind) {
  if (kind == EntryKind::file) moved_.meet(path);
  return filter_.takes(path, name, kind);
}

}  // namespace norvast::indexer
