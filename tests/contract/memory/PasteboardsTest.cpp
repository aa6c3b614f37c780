#include "contract/PasteboardsContract.h"

#include "platform/memory/MemoryPasteboards.h"

namespace tavrel {
namespace {

struct MemoryPasteboardsWorld {
  MemoryPasteboards adapter;
  Pasteboards& pasteboards() { return adapter; }
  void copyElsewhere(const std::string& text) {
    adapter.general().declareTypes({pasteboardType::string});
    adapter.general().setString(text, pasteboardType::string);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, PasteboardsContract, MemoryPasteboardsWorld);

} // namespace
} // namespace tavrel
