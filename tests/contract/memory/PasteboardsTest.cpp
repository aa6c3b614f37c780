#include "contract/PasteboardsContract.h"

#include "platform/memory/MemoryPasteboards.h"

namespace tavrel {
namespace {

struct MemoryWorld {
  MemoryPasteboards adapter;
  Pasteboards& pasteboards() { return adapter; }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, PasteboardsContract, MemoryWorld);

} // namespace
} // namespace tavrel
