// File descriptor: its one owner, and the one place where interrupted and short transfers are met.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace norvast {

// Owns one open descriptor and closes it. Moved from, it owns none (-1).
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  // Gives the descriptor up to another owner.
  int release() { return std::exchange(number_, -1); }
  explicit operator bool() const { return number_ >= 0; }

  // Reads what there is, at most `into.size()` bytes, and waits for the first of them. 0 at the
  // end, nothing on failure.
  std::optional<std::size_t> read(std::span<char> into) const;

  // The same without waiting: nothing, too, where there is no byte yet. For files, which have all
  // their bytes at once but for a few that the kernel makes up (/proc/kmsg).
  std::optional<std::size_t> readAtOnce(std::span<char> into) const;

  // Waits until there is something to read, or the end of it. False when it is `end` first.
  bool waitForInput(std::chrono::steady_clock::time_point end) const;

  // Writes all bytes, waiting as long as it takes. False when not all could be written.
  bool write(std::string_view bytes) const;

 private:
  int number_;
};

// Points those of the descriptors 0, 1 and 2 that are closed at /dev/null, so that no file opened
// later takes their place.
void keepStandardDescriptorsOpen();

// Closes all descriptors above 2, which the program that started this one left open. To be called
// before this process opens anything that has an owner.
void closeInheritedDescriptors();

// Lets a write to a closed pipe fail instead of ending the process.
void ignoreBrokenPipes();

}  // namespace norvast
