#include "tools/tool_context.h"

#include "store/settings.h"

namespace norvast {

std::optional<SentenceQuery> ToolContext::query(const std::string& text) const {
  if (!sentence) return std::nullopt;
  return sentence->query(text, setting(store.rdb, EMBEDDING_SCHEME_SETTING));
}

}  // namespace norvast
