// Reading order: which files of a run are read first, so that soon it can be told how long it
// takes.
#pragma once

#include <vector>

#include "content/file_kind.h"
#include "indexer/indexing/file_scan.h"

namespace norvast::indexer {

// By the file's name alone; what is in it may turn out otherwise.
FileKind expectedKind(const ScannedFile& file);

// Brings a tenth of the files of each kind to the front, eight at the least, taken evenly from all
// of that kind. Other texts stay in their order: neighbours on disk are neighbours in the index,
// too. What takes a program of its own to read costs more than that saves: it is spread, so that
// whatever was read of it stands for the rest.
void putSampleFirst(std::vector<ScannedFile>& files);

}  // namespace norvast::indexer
