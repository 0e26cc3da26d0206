#include "extractor/compound_file.h"

#include <algorithm>
#include <utility>

#include "extractor/compound_sectors.h"
#include "extractor/reading_bounds.h"
#include "extractor/summary_properties.h"
#include "platform/byte_order.h"
#include "text/ascii.h"

namespace norvast {
namespace {

// [MS-CFB] 2.6: an entry of the directory.
constexpr std::size_t ENTRY_BYTES = 128;
constexpr std::size_t MOST_NAME_BYTES = 64;
constexpr std::uint32_t FOLDER_TYPE = 1;
constexpr std::uint32_t STREAM_TYPE = 2;
constexpr std::uint32_t ROOT_TYPE = 5;
constexpr std::size_t LEAST_LARGE_STREAM_BYTES = 4096;  // smaller ones are cut into small sectors

struct Entry {
  std::string_view name;  // in UTF-16
  std::uint32_t type;
  std::uint32_t left;  // the entries of a folder are a tree
  std::uint32_t right;
  std::uint32_t child;  // the root of that tree, of a folder
  std::uint32_t first;  // sector of a stream
  std::uint32_t sizeBytes;
};

Entry parseEntry(std::string_view bytes) {
  const std::size_t nameBytes =
      std::min<std::size_t>(littleEndianAt(bytes, 64, 2), MOST_NAME_BYTES);
  return {bytes.substr(0, nameBytes < 2 ? 0 : nameBytes - 2),  // without its NUL
          littleEndianAt(bytes, 66, 1),
          littleEndianAt(bytes, 68, 4),
          littleEndianAt(bytes, 72, 4),
          littleEndianAt(bytes, 76, 4),
          littleEndianAt(bytes, 116, 4),
          littleEndianAt(bytes, 120, 4)};
}

std::string utf16(std::string_view ascii) {
  std::string wide;
  for (const char character : ascii) wide += {character, '\0'};
  return wide;
}

}  // namespace

struct CompoundFile::Content {
  CompoundSectors sectors;
  std::string directory;

  std::size_t count() const { return directory.size() / ENTRY_BYTES; }
  Entry entry(std::uint32_t number) const {
    return parseEntry(std::string_view(directory).substr(number * ENTRY_BYTES, ENTRY_BYTES));
  }

  // The entries of a folder in the order of their tree; none twice, wherever it leads.
  std::vector<std::uint32_t> entriesOf(std::uint32_t folder) const {
    std::vector<std::uint32_t> found;
    std::vector<std::uint32_t> above;
    std::vector<bool> isSeen(count());
    std::uint32_t at = entry(folder).child;
    for (;;) {
      for (; at < count() && !isSeen[at]; at = entry(at).left) {
        isSeen[at] = true;
        above.push_back(at);
      }
      if (above.empty()) return found;
      found.push_back(above.back());
      above.pop_back();
      at = entry(found.back()).right;
    }
  }
};

CompoundFile::CompoundFile(std::shared_ptr<const Content> content, std::uint32_t folder)
    : content_(std::move(content)), entries_(content_->entriesOf(folder)) {}

std::optional<CompoundFile> CompoundFile::open(std::string_view bytes) {
  auto sectors = CompoundSectors::of(bytes);
  if (!sectors) return std::nullopt;
  std::string directory = sectors->directory();
  if (directory.size() < ENTRY_BYTES) return std::nullopt;
  const Entry root = parseEntry(directory);
  if (root.type != ROOT_TYPE) return std::nullopt;
  sectors->setSmallStreams(root.first);
  auto content =
      std::make_shared<const Content>(Content{std::move(*sectors), std::move(directory)});
  return CompoundFile(std::move(content), 0);
}

std::optional<std::uint32_t> CompoundFile::entryOf(std::string_view streamName) const {
  const std::string wanted = asciiLowerCase(utf16(streamName));
  for (const std::uint32_t number : entries_) {
    const Entry entry = content_->entry(number);
    if (entry.type == STREAM_TYPE && asciiLowerCase(entry.name) == wanted) return number;
  }
  return std::nullopt;
}

bool CompoundFile::hasStream(std::string_view name) const { return entryOf(name).has_value(); }

std::optional<std::string> CompoundFile::stream(std::string_view name) const {
  const auto number = entryOf(name);
  if (!number) return std::nullopt;
  const Entry entry = content_->entry(*number);
  const std::size_t size = std::min<std::size_t>(entry.sizeBytes, MOST_STREAM_BYTES);
  return entry.sizeBytes < LEAST_LARGE_STREAM_BYTES
             ? content_->sectors.smallStream(entry.first, size)
             : content_->sectors.stream(entry.first, size);
}

std::vector<CompoundFile> CompoundFile::folders(std::string_view namePrefix) const {
  const std::string wanted = utf16(namePrefix);
  std::vector<CompoundFile> found;
  for (const std::uint32_t number : entries_) {
    const Entry entry = content_->entry(number);
    if (entry.type != FOLDER_TYPE || !entry.name.starts_with(wanted)) continue;
    found.push_back(CompoundFile(content_, number));
  }
  return found;
}

void CompoundFile::addProperties(DocumentBuilder& document) const {
  const auto properties = summaryProperties(stream("\005SummaryInformation").value_or(""));
  document.setTitle(properties.title);
  document.setAuthor(properties.author);
}

}  // namespace norvast
