#pragma once

#include "contract/linux/x11/clipboard/ClipboardFixture.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/selection/LinuxAccessibility.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "support/Desktop.h"
#include "support/TemporaryFolder.h"

#include <fstream>

namespace tavrel {

/// Captures from a program in front as the core does: saves the clipboard, posts up to ten copies
/// with a sleep after each, reads, restores. The user's clipboard is another program's.
class SelectionFixture : public ClipboardFixture {
protected:
  SelectionFixture() { clipboardOwner.copy(theirs); }

  /// Starts contract_copying_application, and waits for it to be in front.
  void front(const QStringList& settings) {
    application = std::make_unique<Program>(QStringLiteral(TAVREL_COPYING_APPLICATION),
                                            QStringList{log()} + settings);
    ASSERT_TRUE(eventually([&] { return !keys().empty(); }));
    frontIs("contract_copying_application");
  }
  void frontIs(const std::string& windowClass) {
    ASSERT_TRUE(eventually([&] {
      const auto facts = windows.facts(windows.activeWindow());
      process = facts ? facts->pid : 0;
      return facts && facts->windowClass == windowClass &&
             windows.hasKeyboard(windows.activeWindow());
    })) << windowClass;
  }

  /// What is captured as text; how many times the keystroke was tried is in `tries`.
  std::string captureText() {
    save();
    std::int64_t changes = 0;
    for (tries = 0; changes == 0 && tries < 10; ++tries) {
      const auto before = general.changeCount();
      post(KeyPurpose::copySelection, {'c', 8, KeyDirection::down});
      clock.sleep(0.01);
      changes = general.changeCount() - before;
    }
    capture();
    restore();
    return captured.string(pasteboardType::string).value_or("(none)");
  }
  void post(KeyPurpose purpose, KeyboardEvent letter) {
    const auto element = accessibility.applicationElement(process);
    KeyboardEvent command{0, 55, KeyDirection::down, purpose};
    letter.purpose = purpose;
    EXPECT_TRUE(accessibility.postKeyboardEvent(element, command));
    EXPECT_TRUE(accessibility.postKeyboardEvent(element, letter));
    letter.direction = command.direction = KeyDirection::up;
    EXPECT_TRUE(accessibility.postKeyboardEvent(element, letter));
    EXPECT_TRUE(accessibility.postKeyboardEvent(element, command));
  }

  /// Whether the clipboard is as it was, and stays so for the time in which something late may
  /// come.
  [[nodiscard]] bool clipboardIsAsBefore() {
    for (const OwnedTarget& each : theirs)
      if (paster.paste(each.name) != each.property)
        return false;
    return true;
  }
  /// The keys that the application has handled.
  std::vector<std::string> keys() {
    std::ifstream file(log().toStdString());
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
      lines.push_back(line);
    return lines;
  }
  QString log() { return QString::fromStdString(scratch.path() + "/keys"); }

  TemporaryFolder scratch;
  std::vector<OwnedTarget> theirs{plain("UTF8_STRING", "the user's"),
                                  plain("text/html", "<b>u</b>"),
                                  plain("application/x-own", "\1\2")};
  SelectionOwner clipboardOwner{{}};
  LinuxClock clock;
  ApplicationRegistry registry{{}};
  DesktopWindows windows;
  OwnKeystrokes own;
  std::vector<std::string> exceptions;
  LinuxAccessibility accessibility{{registry, windows, own, pasteboards->clipboard(),
                                    [this] { return exceptions; },
                                    [this] { clock.skipNextSleep(); }}};
  std::unique_ptr<Program> application;
  std::int32_t process = 0;
  int tries = 0;
};

} // namespace tavrel
