#pragma once

#include "platform/memory/MemoryDesktop.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// What an application does with the clipboard when it is asked to copy.
using CopyAnswer = std::function<void(Pasteboard&)>;

/// From now on the application in front answers the copy keystroke: the n-th press, once.
inline void answerCopy(MemoryDesktop& desktop, CopyAnswer answer, int press = 1) {
  if (!desktop.applications.control.active)
    desktop.applications.control.start("Editor", "/Applications/Editor.app");
  desktop.accessibility.control.onPost = [&desktop, answer = std::move(answer), press,
                                          presses = 0](const auto& posted) mutable {
    const KeyboardEvent& event = posted.event;
    if (event.character == 'c' && event.direction == KeyDirection::down && ++presses == press)
      answer(desktop.pasteboards.general());
  };
}

[[nodiscard]] inline CopyAnswer copyText(std::string text) {
  return [text = std::move(text)](Pasteboard& pasteboard) {
    pasteboard.declareTypes({pasteboardType::string});
    pasteboard.setString(text, pasteboardType::string);
  };
}

/// What a password manager copies.
[[nodiscard]] inline CopyAnswer copyPassword(std::string password) {
  return [password = std::move(password)](Pasteboard& pasteboard) {
    pasteboard.declareTypes({pasteboardType::concealed, pasteboardType::string});
    pasteboard.setString(password, pasteboardType::string);
  };
}

[[nodiscard]] inline CopyAnswer copyFiles(std::vector<std::string> paths,
                                          const char* type = pasteboardType::filenames) {
  return [paths = std::move(paths), type](Pasteboard& pasteboard) {
    pasteboard.declareTypes({type});
    pasteboard.setPropertyList(PropertyList::Array(paths.begin(), paths.end()), type);
  };
}

} // namespace tavrel
