#pragma once

#include "platform/Event.h"

namespace tavrel {

/// Tests of what one event carries.

/// Whether the first character is this one; false for an event without characters.
[[nodiscard]] bool characterIsDown(const Event& event, char16_t character);

[[nodiscard]] bool isShiftTabKeyEvent(const Event& event);
[[nodiscard]] bool isTabKeyEvent(const Event& event);
[[nodiscard]] bool isEscKeyEvent(const Event& event);
[[nodiscard]] bool isReturnKeyEvent(const Event& event);
[[nodiscard]] bool isDeleteKeyEvent(const Event& event);
[[nodiscard]] bool isUpArrowEvent(const Event& event);
[[nodiscard]] bool isDownArrowEvent(const Event& event);
[[nodiscard]] bool isLeftArrowEvent(const Event& event);
[[nodiscard]] bool isRightArrowEvent(const Event& event);
[[nodiscard]] bool isHomeKeyEvent(const Event& event);
[[nodiscard]] bool isEndKeyEvent(const Event& event);
[[nodiscard]] bool isPageUpKeyEvent(const Event& event);
[[nodiscard]] bool isPageDownKeyEvent(const Event& event);
[[nodiscard]] bool isArrowEvent(const Event& event);

/// By parity: a fourth click in a row is a double click again, and a third a single one.
[[nodiscard]] bool isDoubleClick(const Event& event);
[[nodiscard]] bool isSingleClick(const Event& event);

[[nodiscard]] bool shiftKeyDown(const Event& event);
[[nodiscard]] bool controlKeyDown(const Event& event);
[[nodiscard]] bool optionKeyDown(const Event& event);
[[nodiscard]] bool commandKeyDown(const Event& event);
/// Any of the four.
[[nodiscard]] bool modifierIsDown(const Event& event);
[[nodiscard]] bool optionXOrCommandKeyDown(const Event& event);
/// Command is down and the event is none of a key going down.
[[nodiscard]] bool openInNewWindowEvent(const Event& event);

} // namespace tavrel
