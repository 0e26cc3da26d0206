#include "indexer/console/index_status_view.h"

#include <cstdint>

#include "indexer/console/json_output.h"
#include "indexer/console/terminal.h"

namespace norvast::indexer {
namespace {

std::string megabytes(std::uint64_t bytes) {
  const std::uint64_t tenths = (bytes * 10 + 500'000) / 1'000'000;
  return grouped(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

std::string row(const std::string& name, const std::string& value) {
  return name + std::string(name.size() < 22 ? 22 - name.size() : 1, ' ') + value + "\n";
}

std::string row(const std::string& name, std::uint64_t number) {
  return row(name, grouped(number));
}

// What decodes files and how far it is locked in; anything less than all of it in colour.
std::string lockText(std::optional<LockState> lock) {
  if (!lock) return coloured("none runs: not installed, or not to be locked in", Colour::yellow);
  switch (*lock) {
    case LockState::landlockUnknown:
      return coloured("locked in less: this kernel does not know Landlock", Colour::yellow);
    case LockState::landlockRefused:
      return coloured("locked in less: Landlock is refused here", Colour::yellow);
    case LockState::seccompUnknown:
      return coloured("locked in less: this kernel does not know seccomp", Colour::yellow);
    case LockState::whole:
      break;
  }
  return "locked in";
}

}  // namespace

std::string statusText(const IndexStatus& status) {
  const auto& process = status.watchingProcess;
  return row("index", printable(status.path)) + row("size", megabytes(status.sizeBytes)) +
         row("files", status.files) + row("  with a summary", status.withSummary) +
         row("  without text", status.withoutText) + row("  passages", status.passages) +
         row("  embedded by", printable(status.embeddingScheme.value_or("nothing yet"))) +
         row("roots", status.roots) + row("rules", status.rules) +
         row("  content", status.underContent) + row("  metadata", status.underMetadata) +
         row("  withheld", status.underWithheld) + row("  no rule", status.underNone) +
         row("nominated", status.nominated) +
         row("  with their content", status.nominatedWithContent) +
         row("audit events", status.auditEvents) +
         row("watched", process ? "by process " + std::to_string(*process) : "no") +
         row("decoders", lockText(status.decoderLock)) +
         row("AI access", status.isAccessOn ? "on" : coloured("off", Colour::yellow)) +
         row("whole library", status.isLibraryOn ? coloured("on", Colour::yellow) : "off");
}

Json statusJson(const IndexStatus& status) {
  const auto& process = status.watchingProcess;
  const auto lock = status.decoderLock;
  return Json::Object{{"index", status.path},
                      {"size_bytes", status.sizeBytes},
                      {"files", status.files},
                      {"with_summary", status.withSummary},
                      {"without_text", status.withoutText},
                      {"passages", status.passages},
                      {"embedding_scheme", orNull(status.embeddingScheme)},
                      {"roots", status.roots},
                      {"rules", status.rules},
                      {"files_by_rule", Json::Object{{"content", status.underContent},
                                                     {"metadata", status.underMetadata},
                                                     {"withheld", status.underWithheld},
                                                     {"none", status.underNone}}},
                      {"nominated", status.nominated},
                      {"nominated_with_content", status.nominatedWithContent},
                      {"audit_events", status.auditEvents},
                      {"watching_process", process ? Json(*process) : Json()},
                      {"decoder_lock", lock ? Json(std::string(lockWord(*lock))) : Json()},
                      {"ai_access", status.isAccessOn},
                      {"whole_library", status.isLibraryOn}};
}

std::string withoutTextList(const std::vector<FailedFile>& files) {
  std::string text;
  for (const FailedFile& file : files) {
    text += std::string(failureText(file.reason)) + ": " + printable(file.path) + "\n";
  }
  return text;
}

Json withoutTextJson(const std::vector<FailedFile>& files) {
  Json::Array array;
  for (const FailedFile& file : files) {
    array.push_back(Json::Object{{"path", file.path}, {"reason", failureWord(file.reason)}});
  }
  return array;
}

}  // namespace norvast::indexer
