// Embedding again: brings the vectors in the index to the scheme of the present embedding, from the
// texts that the index holds. No file is opened.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "embedding/sentence_embedding.h"
#include "indexer/indexing/indexing_progress.h"
#include "store/connection.h"

namespace norvast::indexer {

struct Reembedding {
  std::uint64_t files = 0;
  std::optional<std::string> obstacle;  // why the index could not be written to the end
};

// Makes all vectors again where those in the index are of another scheme than `sentence`, and then
// stores the scheme as the setting EMBEDDING_SCHEME_SETTING; an index that has none yet is taken
// for another. Works in the order of the paths, in batches of one transaction each; after an
// interruption the next call goes on where it ended. Until the last batch the index counts as one
// of the old scheme, and what is done already is not found well. `progress` may be nullptr.
Reembedding embedAgain(const Connection& index, const SentenceEmbedding& sentence,
                       IndexingProgress* progress);

// The number of files for which that is to be done.
std::uint64_t countToEmbedAgain(const Connection& index, const SentenceEmbedding& sentence);

}  // namespace norvast::indexer
