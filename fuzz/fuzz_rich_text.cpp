#include "base/RtfText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = tavrel::textOfRtf({reinterpret_cast<const char*>(data), size});
  // One byte of input ("\~", "\u0") makes at most a few of text.
  if (text && text->size() > 3 * size)
    std::abort();
  return 0;
}
