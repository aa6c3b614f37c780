#include "contract/TextEncodingsContract.h"

#include "platform/macos/MacTextEncodings.h"

namespace tavrel {
namespace {

struct MacTextEncodingsWorld {
  TextEncodings& textEncodings() { return adapter; }

  MacTextEncodings adapter;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, TextEncodingsContract, MacTextEncodingsWorld);

} // namespace
} // namespace tavrel
