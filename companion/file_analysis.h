// File analysis: what the index keeps of one file's text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/sentence_embedding.h"

namespace norvast {

struct Passage {
  std::string text;
  std::vector<float> vec;
};

struct FileAnalysis {
  bool hasText = false;
  std::string summary;
  std::string entities;    // one a line, most frequent first
  std::string method;      // by which the text was taken
  std::vector<float> vec;  // of name, summary and leading text together; empty when there is none
  std::vector<Passage> passages;  // those with a vector: a row of dashes can be found by nobody
};

// Analyses the file at `path`: a bounded part of its text, taken as the server takes it, PDFs and
// images in a program of their own. A file without text still has the vector of its name.
FileAnalysis analyseFile(const std::string& path, const std::optional<SentenceEmbedding>& sentence);

}  // namespace norvast
