#pragma once

#include "controller/Ascii2KeyCodeTable.h"
#include "controller/HotKeyRecord.h"
#include "platform/Image.h"
#include "platform/Scripts.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tavrel {

/// Every variable of the core that belongs to the process and not to an object; the desktop in use
/// is the only other one (`platform()`).

/// The system's version as a BCD number, asked once at launch.
extern std::int32_t gOsVersion;

/// Whether menus show icons; the setting `TVR_DisplayIcons`.
extern bool showIcon;

/// Icons shared by the submenus, 16 by 16 points.
extern std::optional<Image> serverIcon;
extern std::optional<Image> blankIcon;

/// True while a compiled script runs. Menus are not prepared meanwhile.
extern bool gExecutingScript;

/// Whether Option was held when the item being carried out was chosen. The code that dispatches
/// an item stores it; a hot key stores false.
extern bool sOptionKeyPressed;

/// The component instance of all compiled scripts: opened by the first, never closed. 0 before.
extern ComponentInstance sComponent;

/// All hot keys registered now, in the order they were registered.
extern std::vector<HotKeyRecord> gHotkeyArray;

/// The table of the keyboard layout that was current at launch.
extern Ascii2KeyCodeTable gKeycodeTable;

/// The keystroke that is handed on to the application in front. Never reset: a hand-on overwrites
/// what it needs and takes the rest from the one before.
extern std::uint16_t gAppCharCode;
extern std::uint16_t gAppKeyCode;   ///< virtual key code
extern std::uint32_t gAppModifiers; ///< event-manager form

/// How loud the beep was before it was silenced.
extern std::int32_t beepLevel;

/// Makes all of it as it is when the process starts; for tests.
void resetProcessState();

} // namespace tavrel
