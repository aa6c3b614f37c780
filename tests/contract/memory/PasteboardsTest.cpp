#include "contract/PasteboardsContract.h"

#include "platform/memory/MemoryPasteboards.h"

namespace tavrel {
namespace {

struct MemoryPasteboardsWorld {
  MemoryPasteboards adapter;
  Pasteboards& pasteboards() { return adapter; }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, PasteboardsContract, MemoryPasteboardsWorld);

} // namespace
} // namespace tavrel
