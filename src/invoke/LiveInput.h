#pragma once

namespace tavrel {

/// Tests of the keyboard and the mouse as they are now, whatever event is being handled.

[[nodiscard]] bool isMouseButtonDown();
[[nodiscard]] bool capsLockDownNow();
[[nodiscard]] bool shiftKeyDownNow();
[[nodiscard]] bool commandKeyDownNow();
[[nodiscard]] bool optionKeyDownNow();
[[nodiscard]] bool controlKeyDownNow();
[[nodiscard]] bool spaceKeyDownNow();

} // namespace tavrel
