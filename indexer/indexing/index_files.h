// Indexing files: bringing the rows of the index in line with what lies on disk and was decided.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "embedding/sentence_embedding.h"
#include "indexer/decisions/moved_rules.h"
#include "indexer/indexing/failures.h"
#include "indexer/indexing/file_scan.h"
#include "indexer/indexing/indexing_progress.h"
#include "indexer/indexing/territory.h"
#include "store/connection.h"

namespace norvast::indexer {

struct IndexingReport {
  // Files that were to be read, which were new, changed, or read again though they are as they
  // were: because it was told so, or because they failed for a reason that may have passed.
  std::uint64_t added = 0;
  std::uint64_t changed = 0;
  std::uint64_t readAgain = 0;
  std::uint64_t indexed = 0;    // of them those whose rows were written
  std::uint64_t unchanged = 0;  // of the same size and modification time as when they were indexed
  std::uint64_t removed = 0;    // gone from disk or left out, and so from every table
  std::uint64_t embeddedAgain = 0;  // whose vectors were of another scheme; not read for that
  std::optional<std::string> modelObjection;  // why the installed model is not used, a sentence
  std::vector<FailedFile> failures;           // of the files that this run read; indexed by name
  std::vector<MovedRule> movedRules;          // carried to where that lies now
  std::vector<MovedRule> restrictedAgain;     // files that came from where less was shown of them
  std::vector<std::string> missingRoots;  // that are not there now; what is known of them is kept
  ScanReport scan;
  LeftOut leftOut;
  // Why the index could not be written to the end; what was written before is kept.
  std::optional<std::string> obstacle;
};

// The files that are read: those that changed, or all.
enum class Selection { changed, all };

// Indexes the files at and below each path, as far as they lie in a root and no rule leaves them
// out, and removes the rows of files that are gone from there. Finishes before what a removal that
// was killed left (indexer/decisions/unfinished_removals.h). A path is absolute and free of
// links: a root, a file or folder within one, which may be gone, or a folder that holds roots. What
// lies in a folder that cannot be read is kept. What was withheld or left out is so where it was
// moved to, as well.
//
// Files are analysed first and written after, in batches of one transaction each, in which clients
// get to see them as the rules say at that moment: a reader waits for moments only, and an
// interruption at any point leaves whole files, the rest of which the next run makes good. The
// decisions may change meanwhile; the last ones hold for all files.
// `sentence`, where there is one, makes the vectors, with the model that is installed now; it may
// serve many runs. `progress`, where there is one, is told of each file. `isToStop` is asked before
// each file, and ends the run early.
IndexingReport indexFiles(const Connection& index, std::optional<SentenceEmbedding>& sentence,
                          const std::vector<std::string>& paths,
                          IndexingProgress* progress = nullptr,
                          const std::function<bool()>& isToStop = nullptr,
                          Selection selection = Selection::changed);

// Does the same to a scratch index (indexer/index/scratch_index.h) but for reading files: what
// would be read counts as indexed.
IndexingReport rehearseIndexing(const Connection& scratch,
                                std::optional<SentenceEmbedding>& sentence,
                                const std::vector<std::string>& paths, Selection selection);

// Removes the rows of all files at or below the path that are not to be indexed, in batches as
// above, which finishes a removal that was noted for it. Adds up what was removed.
IndexingReport removeUnindexed(const Connection& index, const std::string& path);

}  // namespace norvast::indexer
