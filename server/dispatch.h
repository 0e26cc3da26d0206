// Method dispatch: one incoming JSON-RPC message, at most one response line.
#pragma once

#include "json/json_text.h"
#include "server/output.h"
#include "server/process_values.h"

namespace norvast {

// Answers `message`, an object, on `output`. A message without a method that is a string gets no
// answer, nor do the client's notice that it is initialized and an unknown method without an id;
// one with an id gets the error METHOD_NOT_FOUND. No state is kept between messages.
void handle(const JsonText& message, const ProcessValues& values, Output& output);

}  // namespace norvast
