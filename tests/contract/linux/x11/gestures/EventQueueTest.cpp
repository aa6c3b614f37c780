#include "contract/EventQueueContract.h"

#include "base/Modifiers.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/x11/gestures/LinuxEventQueue.h"
#include "platform/linux/x11/gestures/MouseEvents.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <utility>
#include <vector>

namespace tavrel {
namespace {

constexpr std::uint8_t primary = 1;

/// Notes the mouse events it gets.
struct MouseWindow : QWidget {
  MouseWindow() {
    setWindowFlags(Qt::X11BypassWindowManagerHint);
    setGeometry(100, 100, 300, 200);
    show();
  }
  void mousePressEvent(QMouseEvent*) override { got.emplace_back("press"); }
  void mouseMoveEvent(QMouseEvent*) override { got.emplace_back("drag"); }
  void mouseReleaseEvent(QMouseEvent*) override { got.emplace_back("release"); }
  std::vector<std::string> got;
};

struct LinuxEventQueueWorld {
  LinuxClock time;
  LinuxEventQueue adapter{time};
  MouseWindow window;
  FakeInput input;

  LinuxEventQueueWorld() {
    EXPECT_TRUE(eventually([this] { return window.windowHandle()->isExposed(); }));
    input.movePointer(200, 150);
    input.buttonDown(primary);
    EXPECT_TRUE(eventually([this] { return window.got == std::vector<std::string>{"press"}; }));
  }
  ~LinuxEventQueueWorld() { release(); }
  EventQueue& queue() { return adapter; }
  Clock& clock() { return time; }
  void drag() { input.movePointer(210, 170); }
  void release() { input.buttonUp(primary); }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, EventQueueContract, LinuxEventQueueWorld);

class LinuxEventQueueTest : public EventQueueContract<LinuxEventQueueWorld> {};

TEST_F(LinuxEventQueueTest, ADragTellsPlaceTimeAndModifiers) {
  world.input.down(serverKey::control);
  world.drag();
  const double before = world.time.now();
  const auto drag = next(upOrDragged, Dequeue::yes);
  world.input.up(serverKey::control);
  ASSERT_TRUE(drag);
  EXPECT_EQ(drag->location, (Point{110, 200 - 70})) << "from the bottom left of the window";
  EXPECT_EQ(drag->modifierFlags, 0x100000U);
  EXPECT_GE(drag->timestamp, before);
  EXPECT_EQ(drag->windowNumber, static_cast<std::int32_t>(world.window.winId()));
}

TEST_F(LinuxEventQueueTest, WhatIsNotTakenOutReachesItsWindowAfterwards) {
  world.drag();
  ASSERT_TRUE(next(upOrDragged, Dequeue::yes));
  world.release();
  ASSERT_TRUE(next(upOrDragged, Dequeue::no));
  EXPECT_EQ(world.window.got, std::vector<std::string>{"press"});
  EXPECT_TRUE(eventually([this] { return world.window.got.size() == 2; }));
  EXPECT_EQ(world.window.got.back(), "release");
}

TEST_F(LinuxEventQueueTest, OtherEventsGoOnToTheirWindowsWhileOneIsWaitedFor) {
  world.drag();
  world.release();
  ASSERT_TRUE(next(only(EventType::leftMouseUp), Dequeue::yes));
  EXPECT_EQ(world.window.got, (std::vector<std::string>{"press", "drag"}));
}

TEST_F(LinuxEventQueueTest, EveryButtonHasABit) {
  world.input.buttonDown(3);
  EXPECT_EQ(world.adapter.currentButtonState(), 3U) << "the secondary button is the second bit";
  world.input.buttonUp(3);
  world.input.buttonDown(2);
  EXPECT_EQ(world.adapter.currentButtonState(), 5U);
  world.input.buttonUp(2);
}

TEST(MouseEvents, EachModifierHasItsFlag) {
  const std::pair<Qt::KeyboardModifier, std::uint32_t> modifiers[]{
      {Qt::NoModifier, 0},
      {Qt::ControlModifier, modifier::command},
      {Qt::ShiftModifier, modifier::shift},
      {Qt::AltModifier, modifier::option},
      {Qt::MetaModifier, modifier::control}}; // the toolkit's name for Super
  const QWindow window;
  for (const auto& [held, flag] : modifiers) {
    const QMouseEvent press(QEvent::MouseButtonPress, QPointF(), QPointF(), QPointF(),
                            Qt::LeftButton, Qt::LeftButton, held);
    const auto event = mouseEvent(press, window);
    ASSERT_TRUE(event);
    EXPECT_EQ(event->modifierFlags, flag) << held;
  }
}

} // namespace
} // namespace tavrel
