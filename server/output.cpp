#include "server/output.h"

namespace norvast {

void Output::writeLine(std::string_view line) {
  hasFailed_ = hasFailed_ || !client_.write(line) || !client_.write("\n");
}

}  // namespace norvast
