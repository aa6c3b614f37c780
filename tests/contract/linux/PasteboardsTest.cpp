#include "contract/PasteboardsContract.h"

#include "platform/linux/LinuxPasteboards.h"

namespace tavrel {
namespace {

struct LinuxWorld {
  LinuxPasteboards adapter;
  Pasteboards& pasteboards() { return adapter; }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, PasteboardsContract, LinuxWorld);

} // namespace
} // namespace tavrel
