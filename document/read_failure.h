// Read failure: why there is no text of a file.
#pragma once

#include <cstdint>

namespace norvast {

enum class ReadFailure : std::uint8_t {
  noReader,            // nothing here reads files of its kind
  noText,              // it was read, and holds no text
  decodingFailed,      // it is damaged, or not what its name says
  encrypted,           // it is locked with a password
  unreadableEncoding,  // a text whose encoding cannot be told
  tooLarge,            // it, or what is packed in it, is beyond the bounds
  tooSlow,             // it could not be read in time
  noPermission,        // it may not be opened
  noProgram,           // the program that reads its kind is not installed
  gone,                // it was there a moment ago
};

// The exit status by which a program that reads files tells the reason to the one that started it:
// beside those that shells and the C library give a meaning of their own.
constexpr int exitStatusOf(ReadFailure reason) { return 64 + static_cast<int>(reason); }

// The reason behind an exit status other than 0; damage, when it stands for none.
constexpr ReadFailure failureOfExitStatus(int status) {
  const bool known =
      status >= exitStatusOf(ReadFailure::noReader) && status <= exitStatusOf(ReadFailure::gone);
  return known ? static_cast<ReadFailure>(status - exitStatusOf(ReadFailure::noReader))
               : ReadFailure::decodingFailed;
}

}  // namespace norvast
