// Restricted files: what the files are known again by of which a decision shows less than all, so
// that they stay so wherever they are moved and however they are saved.
#pragma once

#include <string>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/moved_rules.h"
#include "store/connection.h"
#include "store/statement.h"

namespace norvast::indexer {

// True if the rule shows less of a file than all: it is withheld, left out, or shown without its
// text.
bool isRestriction(RuleKind kind);

// Notes the identities of restricted files (platform/file_identity.h), each with the path where it
// was seen last and the kind of the rule. A path may have had many: an editor that saves gives it a
// new one each time, and a backup keeps the old one. Prepared once for a run of files.
class RestrictedFiles {
 public:
  explicit RestrictedFiles(const Connection& index);

  // Notes what lies at the path now, within the caller's transaction, if the rule for it restricts
  // it. Where nothing lies there, or the file system keeps no times of birth, there is nothing to
  // note. Returns false if the index could not be written.
  bool noteSeen(const Rules& rules, const std::string& path);

  // Forgets what lies at the path now: the user decided that it is shown. What lay there before and
  // lies elsewhere now stays noted.
  bool forget(const std::string& path);

 private:
  Statement insert_;
  Statement remove_;
};

// Notes or forgets all indexed files at and below the path, and the file at the path itself, as the
// rules say, in the transaction that changed these: the caller's. If the path is a folder that was
// restricted by a rule of its own under another name, and is shown now, all that was restricted by
// that rule is forgotten. Returns false if the index could not be read or written.
bool bringRestrictedInLine(const Connection& index, const Rules& rules, const std::string& path);

// Notes the indexed files at and below the path that are restricted and were never noted, as in an
// index of an earlier version, and the files that are left out by their own rules. In a transaction
// of its own. Returns false if the index could not be read or written.
bool noteAllRestricted(const Connection& index, const Rules& rules, const std::string& path);

// Notes the file at the path if it is left out by its own rule, which no scan comes to. In a
// transaction of its own. Returns false if the index could not be written.
bool noteLeftOut(const Connection& index, const Rules& rules, const std::string& path);

// Finds the files that were restricted at another path and would be shown more of where they lie
// now, and gives each a rule of its own that restricts it as before, with what clients see by it.
// In a transaction of its own. A file that the user decided about where it lies now is left alone.
CarriedRules restrictAgain(const Connection& index, const std::vector<std::string>& files);

}  // namespace norvast::indexer
