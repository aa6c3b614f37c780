#include "selection/CommandKeystroke.h"

#include "base/Modifiers.h"
#include "invoke/KeyNames.h"
#include "platform/Platform.h"

namespace tavrel {

void postCommandKeystroke(const AXUIElementRef& application, const LetterKey& letter) {
  const KeyboardEvent command{0, keyCode::command, KeyDirection::down};
  const KeyboardEvent key{static_cast<std::uint16_t>(letter.character),
                          isDvorak() ? letter.dvorakKeyCode : letter.usKeyCode, KeyDirection::down};
  const auto post = [&](KeyboardEvent event, KeyDirection direction) {
    event.direction = direction;
    event.purpose = letter.purpose;
    platform().accessibility.postKeyboardEvent(application, event);
  };
  post(command, KeyDirection::down);
  post(key, KeyDirection::down);
  post(key, KeyDirection::up);
  post(command, KeyDirection::up);
}

} // namespace tavrel
