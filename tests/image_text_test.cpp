// Image text: every format, transparency, small type, and images that give none.
#include <gtest/gtest.h>
#include <leptonica/allheaders.h>

#include <string>

#include "content/mcp_content.h"
#include "extractor/first_frame.h"
#include "extractor/image_decoding.h"
#include "extractor/stored_picture.h"
#include "extractor/text_recognition.h"
#include "tests/file_bytes.h"
#include "tests/picture.h"
#include "tests/test_home.h"

namespace norvast {
namespace {

const std::vector<std::string> LINES = {"The harbour ferry", "leaves from pier seven",
                                        "every day at noon"};
constexpr const char* TEXT = "The harbour ferry leaves from pier seven every day at noon";

// What the whole reading makes of the file: nothing is the empty string.
std::string readAs(const TestHome& home, const char* name, const std::string& bytes) {
  const auto path = home.path() / name;
  home.writeFile(path, bytes);
  const auto content = MCPContent::extract(path, 60'000);
  if (!content) return {};
  EXPECT_EQ(content->method, "Vision OCR");
  return content->text;
}

std::string multipageTiff(const Picture& first, const Picture& second) {
  const TestHome home;
  const std::string path = home.path() / "pages.tif";
  EXPECT_EQ(pixWriteTiff(path.c_str(), first.get(), IFF_TIFF_LZW, "w"), 0);
  EXPECT_EQ(pixWriteTiff(path.c_str(), second.get(), IFF_TIFF_LZW, "a"), 0);
  return fileBytes(path);
}

// The grey PNG file with one shade made transparent, in a chunk behind its first.
std::string withTransparentShade(std::string png, char shade) {
  constexpr std::size_t BEHIND_FIRST_CHUNK = 33;
  const std::string checksum(4, '?');  // nobody looks
  png.insert(BEHIND_FIRST_CHUNK, std::string("\0\0\0\2tRNS\0", 9) + shade + checksum);
  return png;
}

// The TIFF file with another orientation: upside down.
std::string turnedTiff(std::string tiff) {
  const std::string orientation("\x12\x01\3\0\1\0\0\0", 8);
  const std::size_t at = tiff.find(orientation);
  EXPECT_NE(at, std::string::npos);
  return tiff.replace(at, 9, orientation + "\3");
}

TEST(ImageText, IsTheLinesOfEveryFormat) {
  const Picture plain = drawnText(LINES);
  const Picture other = drawnText({"Another picture"});
  const Picture clear = onTransparency(plain);
  const Picture dark(pixInvert(nullptr, plain.get()));
  const Picture coloured(pixConvertTo32(plain.get()));
  const Picture bits(pixThresholdToBinary(plain.get(), 128));
  const struct {
    const char* name;
    std::string bytes;
    std::string text;
  } rows[] = {
      {"a.png", encoded(plain, IFF_PNG), TEXT},
      {"colour.PNG", encoded(coloured, IFF_PNG), TEXT},
      {"bits.png", encoded(bits, IFF_PNG), TEXT},
      {"dark.png", encoded(dark, IFF_PNG), TEXT},
      {"transparent.png", encoded(clear, IFF_PNG), TEXT},
      {"shade.png", withTransparentShade(encoded(plain, IFF_PNG), '\xFF'), TEXT},
      {"hidden.png", withTransparentShade(encoded(plain, IFF_PNG), '\0'), ""},
      {"turned.tif", turnedTiff(encoded(plain, IFF_TIFF_LZW)), TEXT},
      {"a.jpg", encoded(plain, IFF_JFIF_JPEG), TEXT},
      {"fax.tif", encoded(bits, IFF_TIFF_G4), TEXT},
      {"pages.tiff", multipageTiff(plain, other), TEXT},
      {"a.gif", encoded(bits, IFF_GIF), TEXT},
      {"animation.gif", gifAnimation(plain, std::string(50'000, ',')), TEXT},
      {"a.bmp", encoded(coloured, IFF_BMP), TEXT},
      {"a.webp", encoded(coloured, IFF_WEBP), TEXT},
      {"transparent.webp", encoded(clear, IFF_WEBP), TEXT},
      {"animation.webp", webpAnimation(coloured, Picture(pixConvertTo32(other.get()))), TEXT},
      {"a.heic", fileBytes(SAMPLES "/receipts/Bakery.heic"),
       "Bakery Corner Rye bread 3.80 Six rolls 2.70 Apple cake, a slice 2.90 Sum 9.40 Fresh from "
       "five in the morning"},
      // The content says what it is.
      {"jpeg.png", encoded(plain, IFF_JFIF_JPEG), TEXT},
      {"png.heic", encoded(plain, IFF_PNG), TEXT},
      // Other formats are none of ours, whether or not a library could read them.
      {"pnm.png", encoded(plain, IFF_PNM), ""},
      {"jpeg2000.png", encoded(plain, IFF_JP2), ""},
      {"empty.png", encoded(Picture(pixCreate(400, 300, 8)), IFF_PNG), ""},
      {"text.png", "A text with the extension of an image", ""},
  };
  const TestHome home;
  for (const auto& row : rows) EXPECT_EQ(readAs(home, row.name, row.bytes), row.text) << row.name;
}

TEST(GreyPng, IsAPngAlone) {
  std::string bytes = withTransparentShade(encoded(drawnText({"x"}), IFF_PNG), '\x80');
  const auto grey = greyPngWithTransparency(bytes);
  ASSERT_TRUE(grey);
  EXPECT_EQ(grey->transparentShade, 0x80);
  bytes.front() = 'B';
  EXPECT_FALSE(greyPngWithTransparency(bytes));
}

// Made smaller, a typeface of 40 pixels a line is one of 10, 12 and 14, as on a screen. None of
// them is read without a mistake as it is.
TEST(ImageText, OfSmallTypeComesOutWell) {
  const TestHome home;
  const Picture large = drawnText(LINES);
  for (const float scale : {0.25F, 0.3F, 0.35F}) {
    const Picture small(pixScaleAreaMap(large.get(), scale, scale));
    EXPECT_EQ(readAs(home, "small.png", encoded(small, IFF_PNG)), TEXT) << scale;
  }
  EXPECT_EQ(readAs(home, "receipt.png", fileBytes(SAMPLES "/receipts/Garden centre.png")),
            "Garden Centre Lindenhof 3 March 2026 10:42 Potting soil 40 1 2x 8.99 Tomato seeds, "
            "Black Cherry 3.49 Bamboo stakes, ten 6.20 Sum 27.67 paid by card Thank you for your "
            "visit");
}

TEST(ImageText, OfATextureIsNothing) {
  Picture texture(pixCreate(600, 400, 8));
  const Picture noise(pixAddGaussianNoise(texture.get(), 60));
  const TestHome home;
  EXPECT_EQ(readAs(home, "noise.png", encoded(noise, IFF_PNG)), "");
}

// An animation costs its first frame, however long it is.
TEST(FirstFrame, EndsBehindTheFirstPicture) {
  const Picture plain = drawnText(LINES);
  const std::string whole = gifAnimation(plain, std::string(1'000'000, ','));
  const std::string first = firstGifFrame(whole);
  EXPECT_LT(first.size(), whole.size() - 999'000);
  EXPECT_EQ(first.back(), ';');
  EXPECT_TRUE(firstGifFrame(first) == first);
  for (std::size_t length = 0; length < 200; ++length) {
    EXPECT_LE(firstGifFrame(whole.substr(0, length)).size(), length + 1);
    EXPECT_LE(firstWebpFrame(whole.substr(0, length)).size(), length);
  }
}

}  // namespace
}  // namespace norvast
