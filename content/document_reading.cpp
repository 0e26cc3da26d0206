#include "content/document_reading.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "content/mcp_content.h"

namespace norvast {
namespace {

// Of a file's text, in characters or bytes as its method counts: about two hundred pages.
constexpr std::int64_t READ_CHARACTERS = 400'000;

}  // namespace

std::variant<Document, ReadFailure> readDocument(const std::string& path) {
  if (access(path.c_str(), R_OK) != 0) {
    return errno == ENOENT ? ReadFailure::gone : ReadFailure::noPermission;
  }
  auto content = MCPContent::extract(path, READ_CHARACTERS);
  if (!content) return ReadFailure::noText;
  // A NUL is no character of a text, and would cut what is stored.
  if (content->text.find('\0') != std::string::npos) return ReadFailure::unreadableEncoding;
  Document document;
  document.method = content->method;
  document.blocks.push_back({DocumentBlock::Kind::paragraph, std::move(content->text)});
  return document;
}

}  // namespace norvast
