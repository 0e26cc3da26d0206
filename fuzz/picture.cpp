// Any bytes as a picture.
#include "extractor/gray_image.h"
#include "extractor/image_decoding.h"
#include "fuzz/target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  (void)decodeImage(textOf(bytes, size));
  return 0;
}
