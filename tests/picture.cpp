#include "tests/picture.h"

#include <gtest/gtest.h>
#include <leptonica/allheaders.h>

#include <cstdlib>

namespace norvast {
namespace {

struct Free {
  void operator()(l_uint8* bytes) const { lept_free(bytes); }
};

struct DestroyFont {
  void operator()(L_Bmf* font) const { bmfDestroy(&font); }
};

std::string number(std::size_t value, std::size_t count) {
  std::string bytes;
  for (; count > 0; --count, value >>= 8) bytes.push_back(static_cast<char>(value & 0xFF));
  return bytes;
}

std::string chunk(const std::string& name, const std::string& content) {
  return name + number(content.size(), 4) + content + (content.size() % 2 == 0 ? "" : "\n");
}

std::string webpFrame(const Picture& picture) {
  constexpr std::size_t CHUNKS_AT = 12;
  const auto width = static_cast<std::size_t>(pixGetWidth(picture.get()));
  const auto height = static_cast<std::size_t>(pixGetHeight(picture.get()));
  return chunk("ANMF", number(0, 6) + number(width - 1, 3) + number(height - 1, 3) +
                           number(100, 3) + number(0, 1) +
                           encoded(picture, IFF_WEBP).substr(CHUNKS_AT));
}

}  // namespace

Picture drawnText(const std::vector<std::string>& lines, int points) {
  const std::unique_ptr<L_Bmf, DestroyFont> font(bmfCreate(nullptr, points));
  const l_int32 pitch = font->lineheight * 3 / 2;
  l_int32 width = 0;
  for (const std::string& line : lines) {
    l_int32 wide = 0;
    (void)bmfGetStringWidth(font.get(), line.c_str(), &wide);
    width = std::max(width, wide);
  }
  Picture picture(pixCreate(width + 2 * pitch, static_cast<l_int32>(lines.size() + 1) * pitch, 8));
  (void)pixSetAll(picture.get());
  l_int32 baseline = pitch;
  for (const std::string& line : lines) {
    (void)pixSetTextline(picture.get(), font.get(), line.c_str(), 0, pitch, baseline, nullptr,
                         nullptr);
    baseline += pitch;
  }
  return picture;
}

std::string encoded(const Picture& picture, int format) {
  l_uint8* bytes = nullptr;
  std::size_t size = 0;
  EXPECT_EQ(pixWriteMem(&bytes, &size, picture.get(), format), 0) << format;
  const std::unique_ptr<l_uint8, Free> owned(bytes);
  return {reinterpret_cast<const char*>(bytes), size};
}

Picture onTransparency(const Picture& picture) {
  const Picture alpha(pixInvert(nullptr, picture.get()));
  Picture black(pixCreate(pixGetWidth(picture.get()), pixGetHeight(picture.get()), 32));
  (void)pixSetRGBComponent(black.get(), alpha.get(), L_ALPHA_CHANNEL);
  (void)pixSetSpp(black.get(), 4);
  return black;
}

std::string gifAnimation(const Picture& picture, const std::string& rest) {
  const Picture twoColours(pixThresholdToBinary(picture.get(), 128));
  std::string file = encoded(twoColours, IFF_GIF);
  const std::size_t tableAt = 13;
  const std::size_t pictureAt = file.find('\x2C', tableAt + 6);
  file.replace(tableAt, 6, 6,
               '\0');  // both colours black; the first one, white before, transparent
  file.pop_back();     // the trailer
  file.insert(pictureAt, std::string("\x21\xF9\x04\x01\x0A\x00\x00\x00", 8));
  return file + rest;
}

std::string webpAnimation(const Picture& first, const Picture& second) {
  const auto width = static_cast<std::size_t>(pixGetWidth(first.get()));
  const auto height = static_cast<std::size_t>(pixGetHeight(first.get()));
  constexpr std::size_t ANIMATED = 2;
  return chunk(
      "RIFF",
      "WEBP" + chunk("VP8X", number(ANIMATED, 4) + number(width - 1, 3) + number(height - 1, 3)) +
          chunk("ANIM", number(0, 6)) + webpFrame(first) + webpFrame(second));
}

}  // namespace norvast
