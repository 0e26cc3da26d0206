// Entry kind: what an entry of a folder is, as far as decisions ask.
#pragma once

namespace norvast::indexer {

enum class EntryKind { file, folder };

}  // namespace norvast::indexer
