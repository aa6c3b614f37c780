#include "invoke/DragDetection.h"
#include "invoke/EventPredicates.h"
#include "invoke/LiveInput.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

Event keyEvent(char16_t character) {
  Event event;
  event.type = EventType::keyDown;
  event.characters = std::u16string(1, character);
  return event;
}

Event clickEvent(int clicks) {
  Event event;
  event.type = EventType::leftMouseDown;
  event.clickCount = clicks;
  return event;
}

Event withModifiers(std::uint32_t flags, EventType type = EventType::leftMouseDown) {
  Event event;
  event.type = type;
  event.modifierFlags = flags;
  return event;
}

TEST(EventPredicates, EachKeyIsKnownByItsFirstCharacter) {
  EXPECT_TRUE(isShiftTabKeyEvent(keyEvent(25)));
  EXPECT_TRUE(isTabKeyEvent(keyEvent(9)));
  EXPECT_TRUE(isEscKeyEvent(keyEvent(27)));
  EXPECT_TRUE(isReturnKeyEvent(keyEvent(13)));
  EXPECT_TRUE(isDeleteKeyEvent(keyEvent(127)));
  EXPECT_TRUE(isUpArrowEvent(keyEvent(63232)));
  EXPECT_TRUE(isDownArrowEvent(keyEvent(63233)));
  EXPECT_TRUE(isLeftArrowEvent(keyEvent(63234)));
  EXPECT_TRUE(isRightArrowEvent(keyEvent(63235)));
  EXPECT_TRUE(isHomeKeyEvent(keyEvent(63273)));
  EXPECT_TRUE(isEndKeyEvent(keyEvent(63275)));
  EXPECT_TRUE(isPageUpKeyEvent(keyEvent(63276)));
  EXPECT_TRUE(isPageDownKeyEvent(keyEvent(63277)));
  EXPECT_FALSE(isTabKeyEvent(keyEvent(25)));
}

TEST(EventPredicates, TheFourArrowsAreArrows) {
  for (char16_t arrow = 63232; arrow <= 63235; ++arrow)
    EXPECT_TRUE(isArrowEvent(keyEvent(arrow)));
  EXPECT_FALSE(isArrowEvent(keyEvent(63236)));
  EXPECT_FALSE(isArrowEvent(keyEvent(63231)));
}

TEST(EventPredicates, AnEventWithoutCharactersIsNoKey) {
  EXPECT_FALSE(characterIsDown(Event(), 0));
  EXPECT_FALSE(isTabKeyEvent(Event()));
  EXPECT_FALSE(isArrowEvent(Event()));
}

TEST(EventPredicates, ClicksCountByParity) {
  EXPECT_FALSE(isDoubleClick(clickEvent(0)));
  EXPECT_FALSE(isSingleClick(clickEvent(0)));
  EXPECT_TRUE(isSingleClick(clickEvent(1)));
  EXPECT_TRUE(isDoubleClick(clickEvent(2)));
  EXPECT_TRUE(isSingleClick(clickEvent(3)));
  EXPECT_TRUE(isDoubleClick(clickEvent(4)));
}

TEST(EventPredicates, ModifiersAreReadFromTheEvent) {
  EXPECT_TRUE(shiftKeyDown(withModifiers(0x20000)));
  EXPECT_TRUE(controlKeyDown(withModifiers(0x40000)));
  EXPECT_TRUE(optionKeyDown(withModifiers(0x80000)));
  EXPECT_TRUE(commandKeyDown(withModifiers(0x100000)));
  for (const std::uint32_t each : {0x20000, 0x40000, 0x80000, 0x100000})
    EXPECT_TRUE(modifierIsDown(withModifiers(each))) << each;
  EXPECT_FALSE(modifierIsDown(withModifiers(0x10000 | 0x800000)));
}

TEST(EventPredicates, OptionOrCommandButNotBoth) {
  EXPECT_TRUE(optionXOrCommandKeyDown(withModifiers(0x80000)));
  EXPECT_TRUE(optionXOrCommandKeyDown(withModifiers(0x100000)));
  EXPECT_FALSE(optionXOrCommandKeyDown(withModifiers(0x180000)));
  EXPECT_FALSE(optionXOrCommandKeyDown(withModifiers(0)));
}

TEST(EventPredicates, ACommandClickOpensANewWindowAndACommandKeyDoesNot) {
  EXPECT_TRUE(openInNewWindowEvent(withModifiers(0x100000)));
  EXPECT_TRUE(openInNewWindowEvent(withModifiers(0x100000, EventType::keyUp)));
  EXPECT_FALSE(openInNewWindowEvent(withModifiers(0x100000, EventType::keyDown)));
  EXPECT_FALSE(openInNewWindowEvent(withModifiers(0)));
}

class LiveInputTest : public CoreTest {};

TEST_F(LiveInputTest, IsReadFromTheKeyboardAndTheMouse) {
  EXPECT_FALSE(isMouseButtonDown() || capsLockDownNow() || shiftKeyDownNow() ||
               commandKeyDownNow() || optionKeyDownNow() || controlKeyDownNow() ||
               spaceKeyDownNow());
  desktop.keyboard.control.eventModifiers = 0x100 | 0x200 | 0x400 | 0x800 | 0x1000;
  desktop.eventQueue.control.buttonState = 3;
  hold(49);
  EXPECT_TRUE(isMouseButtonDown() && capsLockDownNow() && shiftKeyDownNow() &&
              commandKeyDownNow() && optionKeyDownNow() && controlKeyDownNow() &&
              spaceKeyDownNow());
}

TEST_F(LiveInputTest, EachModifierIsReadByItself) {
  using Answer = bool (*)();
  const std::vector<std::pair<std::uint32_t, Answer>> keys{{0x100, commandKeyDownNow},
                                                           {0x200, shiftKeyDownNow},
                                                           {0x400, capsLockDownNow},
                                                           {0x800, optionKeyDownNow},
                                                           {0x1000, controlKeyDownNow}};
  for (const auto& held : keys) {
    desktop.keyboard.control.eventModifiers = held.first;
    for (const auto& [mask, isDown] : keys)
      EXPECT_EQ(isDown(), mask == held.first) << mask << " while " << held.first;
  }
}

TEST_F(LiveInputTest, TheOtherButtonsAreNotThePrimaryOne) {
  desktop.eventQueue.control.buttonState = 2;
  EXPECT_FALSE(isMouseButtonDown());
}

/// A press at (100, 100) with a slop of 5, and what the mouse does afterwards.
class Drag : public CoreTest {
protected:
  void then(EventType type, double time, Point location = {100, 100}) {
    Event event;
    event.type = type;
    event.timestamp = time;
    event.location = location;
    desktop.eventQueue.control.waiting.push_back(event);
  }
  bool isDrag(std::optional<double> timeOut = 1000.0,
              Flippedness flippedness = Flippedness::upwards) {
    Event press;
    press.type = pressType;
    press.location = {100, 100};
    return isDragEvent(press, flippedness, 5.0F, timeOut);
  }

  EventType pressType = EventType::leftMouseDown;
};

TEST_F(Drag, LeavesTheSlop) {
  then(EventType::leftMouseDragged, 1, {103, 100});
  then(EventType::leftMouseDragged, 2, {106, 100});
  EXPECT_TRUE(isDrag());
  EXPECT_TRUE(desktop.eventQueue.control.waiting.empty()) << "the drags are taken out";
}

TEST_F(Drag, InsideTheSlopUntilTheReleaseIsNone) {
  then(EventType::leftMouseDragged, 1, {104, 96});
  then(EventType::leftMouseUp, 2);
  EXPECT_FALSE(isDrag());
  EXPECT_EQ(desktop.eventQueue.control.waiting.size(), 1U) << "the release is left to others";
}

TEST_F(Drag, ARightPressIsNone) {
  pressType = EventType::rightMouseDown;
  then(EventType::leftMouseDragged, 1, {200, 200});
  EXPECT_FALSE(isDrag());
}

TEST_F(Drag, EndsWithTheDate) {
  then(EventType::leftMouseDragged, 5, {200, 200});
  EXPECT_FALSE(isDrag(3.0));
}

TEST_F(Drag, WithoutADateItWaitsTwoSecondsAtATimeWhileTheButtonIsDown) {
  desktop.eventQueue.control.buttonState = 1;
  then(EventType::leftMouseDragged, 5, {200, 200});
  EXPECT_TRUE(isDrag(std::nullopt));
  EXPECT_THAT(desktop.eventQueue.control.waitedUntil, ::testing::ElementsAre(2, 4, 6, 6));
}

TEST_F(Drag, WithoutADateAndWithoutTheButtonItIsNone) {
  then(EventType::leftMouseDragged, 5, {200, 200});
  EXPECT_FALSE(isDrag(std::nullopt));
}

TEST_F(Drag, TheEdgeBelongsToTheSquareOnTheSideWhereTheViewBegins) {
  const auto dragTo = [&](Point place, Flippedness flippedness) {
    desktop.eventQueue.control.waiting.clear();
    then(EventType::leftMouseDragged, 1, place);
    then(EventType::leftMouseUp, 2);
    return isDrag(1000.0, flippedness);
  };
  EXPECT_FALSE(dragTo({100, 105}, Flippedness::upwards));
  EXPECT_TRUE(dragTo({100, 105}, Flippedness::downwards));
  EXPECT_TRUE(dragTo({100, 95}, Flippedness::upwards));
  EXPECT_FALSE(dragTo({100, 95}, Flippedness::downwards));
  for (const auto view : {Flippedness::upwards, Flippedness::downwards}) {
    EXPECT_FALSE(dragTo({95, 100}, view));
    EXPECT_TRUE(dragTo({105, 100}, view));
    EXPECT_TRUE(dragTo({94, 100}, view));
    EXPECT_TRUE(dragTo({100, 106}, view));
    EXPECT_TRUE(dragTo({100, 94}, view));
  }
}

} // namespace
} // namespace tavrel
