#include "indexer/console/file_view.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "indexer/console/json_output.h"
#include "indexer/console/local_time.h"
#include "indexer/console/terminal.h"
#include "indexer/indexing/failures.h"
#include "text/internet_date_time.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

// Of a passage, in user-perceived characters: enough to recognise it.
constexpr std::size_t BEGINNING = 60;
constexpr std::size_t MOST_PASSAGES = 10;

std::string row(const std::string& name, const std::string& value) {
  if (value.empty()) return {};
  return name + std::string(name.size() < 12 ? 12 - name.size() : 1, ' ') + printable(value) + "\n";
}

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

std::string beginning(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
  const std::string_view leading = firstClusters(text, BEGINNING);
  return leading.size() == text.size() ? text : std::string(leading) + "…";
}

std::string_view whatClientsSee(std::optional<Nomination> nomination) {
  if (!nomination) return "nothing";
  return nomination == Nomination::content ? "name, summary and text" : "name and summary";
}

std::string ruleText(const FileDescription& file) {
  if (!file.rule) return "none";
  return std::string(ruleName(file.rule->kind)) + ", for " +
         (file.rule->path == file.path ? "this file" : file.rule->path);
}

std::string passagesText(const FileDescription& file) {
  std::string text;
  for (std::size_t at = 0; at < std::min(file.passages.size(), MOST_PASSAGES); ++at) {
    const auto& [heading, passage] = file.passages[at];
    const std::string lead = heading.empty() ? "" : "[" + beginning(heading) + "] ";
    text += "  " + printable(lead + beginning(passage)) + "\n";
  }
  return text;
}

Json ruleJson(const std::optional<Rule>& rule) {
  if (!rule) return nullptr;
  return Json::Object{{"path", rule->path}, {"kind", ruleName(rule->kind)}};
}

std::string_view nominationWord(std::optional<Nomination> nomination) {
  if (!nomination) return "nothing";
  return nomination == Nomination::content ? "content" : "metadata";
}

Json passagesJson(const FileDescription& file) {
  Json::Array passages;
  for (const auto& [heading, text] : file.passages) {
    passages.push_back(Json::Object{{"heading", heading}, {"text", text}});
  }
  return passages;
}

}  // namespace

std::string fileView(const FileDescription& file) {
  std::string text = row("path", file.path) + row("type", file.typeGroup) +
                     row("size", grouped(file.sizeBytes) + " bytes") +
                     row("modified", localTime(file.modified, "%Y-%m-%d %H:%M")) +
                     row("rule", ruleText(file)) +
                     row("clients see", std::string(whatClientsSee(file.nomination)));
  if (file.failure) text += row("no text", std::string(failureText(*file.failure)));
  if (file.method.empty()) return text;
  return text + row("read by", file.method) + row("title", file.title) +
         row("summary", file.summary) + row("entities", joined(file.entities)) +
         row("passages", grouped(file.passages.size())) + passagesText(file);
}

Json fileJson(const FileDescription& file) {
  return Json::Object{{"path", file.path},
                      {"type_group", file.typeGroup},
                      {"size_bytes", file.sizeBytes},
                      {"modified", internetDateTime(file.modified)},
                      {"rule", ruleJson(file.rule)},
                      {"clients_see", nominationWord(file.nomination)},
                      {"no_text", file.failure ? Json(failureWord(*file.failure)) : Json(nullptr)},
                      {"read_by", file.method},
                      {"title", file.title},
                      {"summary", file.summary},
                      {"entities", strings(file.entities)},
                      {"passages", passagesJson(file)}};
}

}  // namespace norvast::indexer
