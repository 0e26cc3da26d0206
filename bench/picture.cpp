#include "bench/picture.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace norvast {
namespace {

struct Free {
  void operator()(l_uint8* bytes) const { lept_free(bytes); }
};

struct DestroyFont {
  void operator()(L_Bmf* font) const { bmfDestroy(&font); }
};

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
  if (pixWriteMem(&bytes, &size, picture.get(), format) != 0) return {};
  const std::unique_ptr<l_uint8, Free> owned(bytes);
  return {reinterpret_cast<const char*>(bytes), size};
}

}  // namespace norvast
