// Any bytes as a picture.
#include "extractor/picture/gray_image.h"
#include "extractor/picture/image_decoding.h"
#include "fuzz/target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  using namespace norvast::extractor;
  (void)decodeImage(textOf(bytes, size));
  return 0;
}
