#include "indexer/indexing/index_writer.h"

#include <span>
#include <vector>

#include "indexer/indexing/failures.h"
#include "text/file_name.h"

namespace norvast::indexer {
namespace {

bool runOnce(Statement& statement) {
  const bool isDone = statement.run();
  statement.reset();
  return isDone;
}

bool runFor(Statement& statement, const std::string& path) {
  statement.bind(1, path);
  return runOnce(statement);
}

std::span<const std::byte> blobOf(const std::vector<float>& vec) {
  return std::as_bytes(std::span(vec));
}

}  // namespace

IndexWriter::IndexWriter(const Connection& index)
    : insertFile_(index,
                  "INSERT OR REPLACE INTO file(path,name,ext,grp,size,modified,nanoseconds) "
                  "VALUES(?,?,?,?,?,?,?)"),
      insertAnalysis_(index,
                      "INSERT INTO analysis(path,summary,entities,method,title) VALUES(?,?,?,?,?)"),
      insertEmbedding_(index, "INSERT INTO embedding(path,vec) VALUES(?,?)"),
      insertChunk_(index, "INSERT INTO chunk(path,ord,text,vec,heading) VALUES(?,?,?,?,?)"),
      insertFailure_(index, "INSERT INTO failure(path,reason,reader) VALUES(?,?,?)"),
      deleteAnalysis_(index, "DELETE FROM analysis WHERE path = ?"),
      deleteEmbedding_(index, "DELETE FROM embedding WHERE path = ?"),
      deleteChunks_(index, "DELETE FROM chunk WHERE path = ?"),
      deleteFailure_(index, "DELETE FROM failure WHERE path = ?"),
      deleteFile_(index, "DELETE FROM file WHERE path = ?"),
      deleteExposure_(index, "DELETE FROM mcp_exposure WHERE path = ?") {}

bool IndexWriter::replace(const ScannedFile& file, const FileAnalysis& analysis) {
  if (!clearDescription(file.path)) return false;

  insertFile_.bind(1, file.path);
  insertFile_.bind(2, std::string(fileName(file.path)));
  insertFile_.bind(3, fileExtension(file.path));
  insertFile_.bind(4, analysis.group);
  insertFile_.bind(5, file.sizeBytes);
  insertFile_.bind(6, file.modified);
  insertFile_.bind(7, file.nanoseconds);
  if (!runOnce(insertFile_)) return false;

  if (!analysis.vec.empty()) {
    insertEmbedding_.bind(1, file.path);
    insertEmbedding_.bind(2, blobOf(analysis.vec));
    if (!runOnce(insertEmbedding_)) return false;
  }
  if (analysis.failure) return insertFailure(file.path, *analysis.failure);

  insertAnalysis_.bind(1, file.path);
  insertAnalysis_.bind(2, analysis.summary);
  insertAnalysis_.bind(3, analysis.entities);
  insertAnalysis_.bind(4, analysis.method);
  insertAnalysis_.bind(5, analysis.title);
  return runOnce(insertAnalysis_) && insertChunks(file.path, analysis);
}

bool IndexWriter::insertChunks(const std::string& path, const FileAnalysis& analysis) {
  std::int64_t ord = 0;
  for (const Passage& passage : analysis.passages) {
    insertChunk_.bind(1, path);
    insertChunk_.bind(2, ord++);
    insertChunk_.bind(3, passage.text);
    insertChunk_.bind(4, blobOf(passage.vec));
    insertChunk_.bind(5, passage.heading);
    if (!runOnce(insertChunk_)) return false;
  }
  return true;
}

bool IndexWriter::insertFailure(const std::string& path, ReadFailure failure) {
  insertFailure_.bind(1, path);
  insertFailure_.bind(2, std::string(failureWord(failure)));
  insertFailure_.bind(3, std::int64_t{READER_VERSION});
  return runOnce(insertFailure_);
}

bool IndexWriter::clearDescription(const std::string& path) {
  return runFor(deleteAnalysis_, path) && runFor(deleteEmbedding_, path) &&
         runFor(deleteChunks_, path) && runFor(deleteFailure_, path);
}

bool IndexWriter::remove(const std::string& path) {
  return clearDescription(path) && runFor(deleteFile_, path) && runFor(deleteExposure_, path);
}

}  // namespace norvast::indexer
