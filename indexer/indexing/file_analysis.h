// File analysis: what the index keeps of one file's text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "content/document_reading.h"
#include "embedding/sentence_embedding.h"

namespace norvast::indexer {

struct Passage {
  std::string text;     // as it stands in the file
  std::string heading;  // nearest above it; part of what its vector is made of
  std::vector<float> vec;
};

struct FileAnalysis {
  std::optional<ReadFailure> failure;  // why there is no text
  std::string group;                   // as people speak of it: "Documents", "Mail"; may be empty
  std::string title;                   // that the file gives itself; empty when it gives none
  std::string summary;
  std::string entities;           // one a line, most frequent first
  std::string method;             // by which the text was taken
  std::vector<float> vec;         // of what embedded_text.h says; empty when there is none
  std::vector<Passage> passages;  // those with a vector: a row of dashes can be found by nobody
};

// Analyses the file at `path`. A file without text has a reason, and still the vector of its name.
FileAnalysis analyseFile(const std::string& path, const ReadingOptions& options,
                         const std::optional<SentenceEmbedding>& sentence);

}  // namespace norvast::indexer
