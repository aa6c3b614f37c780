#include "controller/ProcessState.h"

namespace tavrel {

std::int32_t gOsVersion = 0;
bool showIcon = true;
std::optional<Image> serverIcon;
std::optional<Image> blankIcon;
bool gExecutingScript = false;
bool sOptionKeyPressed = false;
ComponentInstance sComponent = 0;
std::vector<HotKeyRecord> gHotkeyArray;
Ascii2KeyCodeTable gKeycodeTable;
std::uint16_t gAppCharCode = 0;
std::uint16_t gAppKeyCode = 0;
std::uint32_t gAppModifiers = 0;
std::int32_t beepLevel = 0;

void resetProcessState() {
  gOsVersion = 0;
  showIcon = true;
  serverIcon.reset();
  blankIcon.reset();
  gExecutingScript = false;
  sOptionKeyPressed = false;
  sComponent = 0;
  gHotkeyArray.clear();
  gKeycodeTable = {};
  gAppCharCode = 0;
  gAppKeyCode = 0;
  gAppModifiers = 0;
  beepLevel = 0;
}

} // namespace tavrel
