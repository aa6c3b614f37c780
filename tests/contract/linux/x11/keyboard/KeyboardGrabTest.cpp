#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "support/FakeInput.h"

#include <gtest/gtest.h>

#include <optional>

namespace tavrel {
namespace {

// Keys that were typed during a grab are typed again by what was down as it ended: a modifier that
// goes down a moment later is not theirs.
TEST(KeyboardGrab, TellsWhatWasDownAsItWasReleased) {
  FakeInput keyboard(Device::keyboard);
  std::optional<KeyboardGrab> grab;
  grab.emplace();
  keyboard.down(serverKey::shift);
  grab.reset();
  keyboard.down(serverKey::control);
  EXPECT_TRUE(KeyboardGrab::downAtLastRelease()[serverKey::shift]);
  EXPECT_FALSE(KeyboardGrab::downAtLastRelease()[serverKey::control]);
  keyboard.up(serverKey::control);
  keyboard.up(serverKey::shift);
}

} // namespace
} // namespace tavrel
