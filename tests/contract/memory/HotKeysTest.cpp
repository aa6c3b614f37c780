#include "contract/HotKeysContract.h"

#include "platform/memory/MemoryHotKeys.h"

namespace tavrel {
namespace {

struct MemoryHotKeysWorld {
  MemoryHotKeys adapter;
  HotKeys& hotKeys() { return adapter; }
  void press(std::uint32_t keyCode, std::uint32_t modifiers) { adapter.press(keyCode, modifiers); }
  void settle() {}
  void takeForAnotherProgram(std::uint32_t keyCode, std::uint32_t modifiers) {
    adapter.control.refused.insert({keyCode, modifiers});
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, HotKeysContract, MemoryHotKeysWorld);

} // namespace
} // namespace tavrel
