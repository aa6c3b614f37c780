#pragma once

#include "base/Modifiers.h"
#include "platform/linux/x11/gestures/LinuxEventMonitor.h"
#include "platform/linux/x11/keyboard/LinuxKeyboard.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"

#include <QElapsedTimer>
#include <QProcess>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

namespace tavrel {

inline void handleLayout(const QStringList& arguments) {
  EXPECT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), arguments), 0);
}

inline constexpr std::uint8_t leftButton = 1;
inline constexpr std::uint8_t wheelUp = 4;

inline const std::map<std::uint16_t, std::uint8_t> keysByPlace{
    {keyCode::command, serverKey::control},
    {keyCode::shift, serverKey::shift},
    {keyCode::option, serverKey::alt}};

template <Device device> struct EventMonitorWorld {
  OwnKeystrokes own;
  LinuxEventMonitor adapter{own};
  LinuxKeyboard keys{adapter.keysOfEvent()};
  FakeInput input{device};

  EventMonitor& monitor() { return adapter; }
  Keyboard& keyboard() { return keys; }
  void press(std::uint16_t key) { input.down(keysByPlace.at(key)); }
  void release(std::uint16_t key) { input.up(keysByPlace.at(key)); }
  bool eventually(const std::function<bool()>& condition) { return tavrel::eventually(condition); }
  void letEventsHappen() {
    QElapsedTimer passed;
    passed.start();
    EXPECT_TRUE(eventually([&] { return passed.hasExpired(100); }));
  }
};

using ProgramsKeys = EventMonitorWorld<Device::program>;
using KeyboardsKeys = EventMonitorWorld<Device::keyboard>;

/// Counts the calls of the handler, and runs `inHandler` in each.
template <class World> class MonitorTest : public ::testing::Test {
protected:
  MonitorTest() {
    EXPECT_EQ(world.adapter.installModifierHandler([this](double time) {
      times.push_back(time);
      if (const auto act = inHandler) // a copy: it may set another
        act();
      ++calls;
    }),
              0);
  }
  /// The calls for all that has happened so far: a tap of Super, sent last, shows that they have
  /// come.
  int callsUpToNow() {
    world.input.tap(serverKey::super);
    int last = -1;
    EXPECT_TRUE(eventually([&] {
      const bool still = calls == last;
      last = calls;
      return calls >= 2 && still;
    }));
    return calls - 2;
  }

  World world;
  std::function<void()> inHandler;
  int calls = 0;
  std::vector<double> times; ///< of the calls
};

using LinuxEventMonitorOnKeyboard = MonitorTest<KeyboardsKeys>;

} // namespace tavrel
