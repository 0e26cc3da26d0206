// Compound sectors: how a compound file is cut up, and in which order its pieces make up a stream
// ([MS-CFB] 2.2 to 2.5). Any bytes do; what leads in circles or out of the file ends there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norvast {

class CompoundSectors {
 public:
  // The bytes outlive the sectors. Nothing when they do not begin as a compound file does.
  static std::optional<CompoundSectors> of(std::string_view bytes);

  // All of the directory: entries of 128 bytes each.
  std::string directory() const;

  // Makes known which stream holds the small streams.
  void setSmallStreams(std::uint32_t first);

  // The first `sizeBytes` of the sectors that begin with that one; nothing where there are fewer.
  std::optional<std::string> stream(std::uint32_t first, std::size_t sizeBytes) const;

  // The same of the small sectors, which the streams below 4096 bytes are cut into.
  std::optional<std::string> smallStream(std::uint32_t first, std::size_t sizeBytes) const;

 private:
  using Table = std::vector<std::uint32_t>;  // behind which sector comes which

  CompoundSectors(std::string_view bytes, std::size_t sectorBytes)
      : bytes_(bytes), sectorBytes_(sectorBytes) {}

  std::string_view sector(std::uint32_t number) const;
  std::size_t mostSectors() const { return bytes_.size() / sectorBytes_; }
  Table tableSectors() const;
  Table readTable() const;
  std::string chained(std::uint32_t first, std::size_t mostBytes) const;

  std::string_view bytes_;
  std::size_t sectorBytes_;
  Table next_;
  Table nextSmall_;
  std::string smallSectors_;
};

}  // namespace norvast
