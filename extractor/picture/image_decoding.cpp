#include "extractor/picture/image_decoding.h"

#include <leptonica/allheaders.h>

#include <cstdint>
#include <memory>
#include <string>

#include "extractor/picture/first_frame.h"
#include "extractor/picture/heif_decoding.h"
#include "extractor/picture/shaded_png.h"
#include "extractor/picture/tiff_orientation.h"

namespace norvast::extractor {
namespace {

using Image = GrayImage;  // before it is grey

constexpr l_uint32 WHITE = 0xFFFFFF00;

const l_uint8* units(std::string_view bytes) {
  return reinterpret_cast<const l_uint8*>(bytes.data());
}

Pix* readJpeg(std::string_view bytes) {
  constexpr l_int32 NO_PALETTE = 0;
  constexpr l_int32 FULL_SIZE = 1;
  // Most files store luminance by itself. Those for print (CMYK) do not and are read in colour.
  Pix* grey = pixReadMemJpeg(units(bytes), bytes.size(), NO_PALETTE, FULL_SIZE, nullptr,
                             L_JPEG_READ_LUMINANCE);
  if (grey != nullptr) return grey;
  return pixReadMemJpeg(units(bytes), bytes.size(), NO_PALETTE, FULL_SIZE, nullptr, 0);
}

Pix* readGif(std::string_view bytes) {
  const std::string frame = firstGifFrame(bytes);
  return pixReadMemGif(units(frame), frame.size());
}

Pix* readTiff(std::string_view bytes) {
  constexpr l_int32 FIRST_PAGE = 0;
  std::string stored(bytes);
  dropTiffOrientation(stored);
  return pixReadMemTiff(units(stored), stored.size(), FIRST_PAGE);
}

Pix* readWebp(std::string_view bytes) {
  const std::string frame = firstWebpFrame(bytes);
  return pixReadMemWebP(units(frame), frame.size());
}

Image readImage(std::string_view bytes) {
  constexpr std::size_t SIGNATURE_BYTES = 12;
  l_int32 format = IFF_UNKNOWN;
  if (bytes.size() < SIGNATURE_BYTES || findFileFormatBuffer(units(bytes), &format) != 0) return {};
  switch (format) {
    case IFF_PNG:
      return Image(pixReadMemPng(units(bytes), bytes.size()));
    case IFF_JFIF_JPEG:
      return Image(readJpeg(bytes));
    case IFF_TIFF:
    case IFF_TIFF_PACKBITS:
    case IFF_TIFF_RLE:
    case IFF_TIFF_G3:
    case IFF_TIFF_G4:
    case IFF_TIFF_LZW:
    case IFF_TIFF_ZIP:
    case IFF_TIFF_JPEG:
      return Image(readTiff(bytes));
    case IFF_GIF:
      return Image(readGif(bytes));
    case IFF_BMP:
      return Image(pixReadMemBmp(units(bytes), bytes.size()));
    case IFF_WEBP:
      return Image(readWebp(bytes));
    default:
      return {};
  }
}

Image onWhite(Image image) {
  PixColormap* palette = pixGetColormap(image.get());
  l_int32 opaque = 1;
  if (palette != nullptr && pixcmapIsOpaque(palette, &opaque) == 0 && opaque == 0) {
    image.reset(pixRemoveColormap(image.get(), REMOVE_CMAP_WITH_ALPHA));
  }
  if (!image || pixGetSpp(image.get()) != 4) return image;
  return Image(pixAlphaBlendUniform(image.get(), WHITE));
}

GrayImage inGrey(const Image& image) { return GrayImage(pixConvertTo8(image.get(), 0)); }

GrayImage decode(std::string_view bytes) {
  Image image = readImage(bytes);
  if (image) image = onWhite(std::move(image));
  return image ? inGrey(image) : GrayImage();
}

}  // namespace

void prepareImageDecoding() { prepareHeifDecoding(); }

std::optional<GrayImage> decodeImage(std::string_view bytes) {
  (void)setMsgSeverity(L_SEVERITY_NONE);
  if (isHeif(bytes)) return decodeHeif(bytes);
  if (auto image = decodeShadedPng(bytes)) return image;
  GrayImage image = decode(bytes);
  if (!image) return std::nullopt;
  return image;
}

}  // namespace norvast::extractor
