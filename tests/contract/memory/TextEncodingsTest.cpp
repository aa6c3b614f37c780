#include "contract/TextEncodingsContract.h"

#include "platform/memory/MemoryTextEncodings.h"

namespace tavrel {
namespace {

class MemoryTextEncodingsWorld {
public:
  TextEncodings& textEncodings() { return textEncodings_; }

private:
  MemoryTextEncodings textEncodings_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, TextEncodingsContract, MemoryTextEncodingsWorld);

} // namespace
} // namespace tavrel
