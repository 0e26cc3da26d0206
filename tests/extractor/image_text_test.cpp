// Image text: every format, transparency, small type, and images that give none. How the pictures
// were made is said in data/pictures/make.
#include <gtest/gtest.h>

#include <string>

#include "content/document_reading.h"
#include "content/mcp_content.h"
#include "extractor/picture/first_frame.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"

namespace norvast {
using namespace extractor;

namespace {

const std::string PICTURES = TEST_DATA "/pictures/";

TEST(ImageText, IsTheLinesOfEveryFormat) {
  const char* const same[] = {"grey.png", "colour.PNG", "bits.png", "dark.png", "transparent.png",
                              "shade.png", "turned.tif", "fax.tif", "pages.tiff", "photograph.jpg",
                              "two-colours.gif", "animation.gif", "two-colours.bmp", "colour.webp",
                              "transparent.webp", "animation.webp",
                              // As small as on a screen.
                              "small-30.png", "small-35.png", "small-40.png",
                              // The content says what it is.
                              "jpeg.png", "png.heic"};
  for (const char* name : same) {
    const auto content = MCPContent::extract(PICTURES + name, 60'000);
    ASSERT_TRUE(content) << name;
    EXPECT_EQ(content->text, "The harbour ferry leaves from pier seven every day at noon") << name;
    EXPECT_EQ(content->method, "Vision OCR");
  }
  const auto receipt = MCPContent::extract(SAMPLES "/receipts/Bakery.heic", 60'000);
  EXPECT_EQ(receipt.value().text,
            "Bakery Corner Rye bread 3.80 Six rolls 2.70 Apple cake, a slice 2.90 Sum 9.40 Fresh "
            "from five in the morning");
}

// In the index alone.
TEST(PhotoText, BeginsWithWhatTheCameraWrote) {
  for (const char* name : {"caption.jpg", "caption.heic"}) {
    const auto read = readDocument(PICTURES + name);
    ASSERT_TRUE(std::holds_alternative<Document>(read)) << name;
    EXPECT_EQ(plainText(std::get<Document>(read)),
              "Photo taken on 1 May 2024 at 12:30 by Ana Müller: Harbour of Lisbon (ferry;pier)");
    EXPECT_FALSE(MCPContent::extract(PICTURES + name, 60'000)) << name;
  }
  const auto read = readDocument(PICTURES + "photograph.jpg");
  EXPECT_EQ(plainText(std::get<Document>(read)),
            "The harbour ferry leaves from pier seven every day at noon");
}

TEST(PhotoText, NamesThePlaceThatAProgramWroteDown) {
  const struct {
    const char* packet;
    const char* sentence;
  } rows[] = {
      {"<x:xmpmeta xmlns:x='x' xmlns:p='p'><p:Description p:City=' Lisbon' p:Country='Portugal'/>"
       "</x:xmpmeta>",
       "Photo taken on 1 May 2024 at 12:30 in Lisbon, Portugal by Ana Müller: Harbour of Lisbon "
       "(ferry;pier)"},
      {"<x:xmpmeta xmlns:x='x' xmlns:p='p'><p:Country>Portugal</p:Country><p:Note>far</p:Note>"
       "<p:City>Lisbon</p:City><p:Location>Alc&#xE2;ntara</p:Location><p:State/></x:xmpmeta>",
       "Photo taken on 1 May 2024 at 12:30 in Alcântara, Lisbon, Portugal by Ana Müller: Harbour "
       "of Lisbon (ferry;pier)"},
      {"<x:xmpmeta xmlns:x='x' xmlns:p='p'><p:City>Lisbon</p:City>",
       "Photo taken on 1 May 2024 at 12:30 by Ana Müller: Harbour of Lisbon (ferry;pier)"},
  };
  const TestHome home;
  for (const auto& row : rows) {
    home.writeFile(home.path() / "a.jpg", fileBytes(PICTURES + "caption.jpg") + row.packet);
    const auto read = readDocument(home.path() / "a.jpg");
    ASSERT_TRUE(std::holds_alternative<Document>(read)) << row.packet;
    EXPECT_EQ(plainText(std::get<Document>(read)), row.sentence);
  }
}

// Other formats than ours too, whether or not a library could read them.
TEST(ImageText, OfPicturesWithoutALegibleLineIsNothing) {
  for (const char* name :
       {"hidden.png", "texture.jpg", "empty.png", "bitmap.png", "jpeg2000.png"}) {
    EXPECT_FALSE(MCPContent::extract(PICTURES + name, 60'000)) << name;
  }
}

// An animation costs its first frame, however long it is.
TEST(FirstFrame, EndsBehindTheFirstPicture) {
  const std::string whole = fileBytes(PICTURES + "animation.gif");
  const std::string first = firstGifFrame(whole);
  EXPECT_LT(first.size(), whole.size());
  EXPECT_EQ(first.back(), ';');
  EXPECT_TRUE(firstGifFrame(first) == first);
  EXPECT_TRUE(firstGifFrame(whole + std::string(1'000'000, ',')) == first);
  const std::string webp = fileBytes(PICTURES + "animation.webp");
  for (std::size_t length = 0; length < 400; ++length) {
    EXPECT_LE(firstGifFrame(whole.substr(0, length)).size(), length + 1);
    EXPECT_LE(firstWebpFrame(webp.substr(0, length)).size(), length);
  }
}

}  // namespace
}  // namespace norvast
