#include "extractor/picture/heif_decoding.h"

#include <leptonica/allheaders.h>
#include <libheif/heif.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "platform/byte_order.h"

// In place of libde265's function of this name, which libheif calls for every HEVC picture: without
// a worker thread it decodes in the calling one, and behind the lock there is no other. Exported
// from the program, it comes before the library's own.
extern "C" __attribute__((visibility("default"))) int de265_start_worker_threads(void* /*decoder*/,
                                                                                 int /*count*/) {
  return 0;  // DE265_OK
}

namespace norvast::extractor {
namespace {

struct Release {
  void operator()(heif_context* context) const { heif_context_free(context); }
  void operator()(heif_image_handle* handle) const { heif_image_handle_release(handle); }
  void operator()(heif_image* image) const { heif_image_release(image); }
  void operator()(heif_decoding_options* options) const { heif_decoding_options_free(options); }
};
using Context = std::unique_ptr<heif_context, Release>;
using Handle = std::unique_ptr<heif_image_handle, Release>;
using Picture = std::unique_ptr<heif_image, Release>;
using Options = std::unique_ptr<heif_decoding_options, Release>;

bool succeeded(const heif_error& error) { return error.code == heif_error_Ok; }

Handle primaryPicture(heif_context* context, std::string_view bytes) {
  heif_image_handle* handle = nullptr;
  // No thread of libheif's own either.
  heif_context_set_max_decoding_threads(context, 0);
  if (!succeeded(heif_context_read_from_memory_without_copy(context, bytes.data(), bytes.size(),
                                                            nullptr)) ||
      !succeeded(heif_context_get_primary_image_handle(context, &handle))) {
    return {};
  }
  return Handle(handle);
}

Picture decode(const Handle& handle) {
  const Options options(heif_decoding_options_alloc());
  if (!options) return {};
  options->convert_hdr_to_8bit = 1;
  heif_image* picture = nullptr;
  if (!succeeded(heif_decode_image(handle.get(), &picture, heif_colorspace_YCbCr, heif_chroma_420,
                                   options.get()))) {
    return {};
  }
  return Picture(picture);
}

struct Plane {
  const std::uint8_t* bytes = nullptr;
  int stride = 0;
  int width = 0;
  int height = 0;

  l_uint8 at(int x, int y) const { return bytes[static_cast<std::ptrdiff_t>(y) * stride + x]; }
};

// An 8-bit plane, or one without bytes.
Plane planeOf(const Picture& picture, heif_channel channel) {
  Plane plane;
  if (heif_image_get_bits_per_pixel_range(picture.get(), channel) != 8) return plane;
  plane.bytes = heif_image_get_plane_readonly(picture.get(), channel, &plane.stride);
  plane.width = heif_image_get_width(picture.get(), channel);
  plane.height = heif_image_get_height(picture.get(), channel);
  return plane;
}

// Luminance laid over white.
l_uint8 onWhite(int luminance, int alpha) {
  return static_cast<l_uint8>((luminance * alpha + 255 * (255 - alpha) + 127) / 255);
}

std::optional<GrayImage> grayImage(const Plane& luminance, const Plane& alpha) {
  GrayImage image(pixCreate(luminance.width, luminance.height, 8));
  if (!image) return std::nullopt;
  const bool covered =
      alpha.bytes != nullptr && alpha.width == luminance.width && alpha.height == luminance.height;
  l_uint32* line = pixGetData(image.get());
  for (int y = 0; y < luminance.height; ++y, line += pixGetWpl(image.get())) {
    for (int x = 0; x < luminance.width; ++x) {
      const l_uint8 shade = luminance.at(x, y);
      SET_DATA_BYTE(line, x, covered ? onWhite(shade, alpha.at(x, y)) : shade);
    }
  }
  return image;
}

}  // namespace

void prepareHeifDecoding() { (void)heif_init(nullptr); }  // without plugins it can still do some

bool isHeif(std::string_view bytes) {
  const auto length = static_cast<int>(std::min<std::size_t>(bytes.size(), 1024));
  const auto type =
      heif_check_filetype(reinterpret_cast<const std::uint8_t*>(bytes.data()), length);
  return type == heif_filetype_yes_supported || type == heif_filetype_maybe;
}

std::optional<GrayImage> decodeHeif(std::string_view bytes) {
  const Context context(heif_context_alloc());
  if (!context) return std::nullopt;
  const Handle handle = primaryPicture(context.get(), bytes);
  const Picture picture = handle ? decode(handle) : Picture();
  if (!picture) return std::nullopt;
  const Plane luminance = planeOf(picture, heif_channel_Y);
  if (luminance.bytes == nullptr) return std::nullopt;
  return grayImage(luminance, planeOf(picture, heif_channel_Alpha));
}

// ISO/IEC 23008-12, A.2.1: four bytes say how many more stand before the fields proper.
std::string heifExif(std::string_view bytes) {
  constexpr std::string_view START("Exif\0\0", 6);
  constexpr std::size_t MOST_BYTES = std::size_t{64} << 10;  // as in JPEG
  const Context context(heif_context_alloc());
  const Handle handle = context ? primaryPicture(context.get(), bytes) : Handle();
  heif_item_id block = 0;
  if (!handle ||
      heif_image_handle_get_list_of_metadata_block_IDs(handle.get(), "Exif", &block, 1) != 1) {
    return {};
  }
  std::string fields(heif_image_handle_get_metadata_size(handle.get(), block), '\0');
  if (fields.size() <= 4 || fields.size() > MOST_BYTES ||
      !succeeded(heif_image_handle_get_metadata(handle.get(), block, fields.data()))) {
    return {};
  }
  const std::size_t offset = 4 + std::size_t{bigEndianAt(fields, 0, 4)};
  return offset < fields.size() ? std::string(START) + fields.substr(offset) : std::string();
}

}  // namespace norvast::extractor
