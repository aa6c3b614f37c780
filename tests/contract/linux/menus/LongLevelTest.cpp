#include "base/Modifiers.h"
#include "contract/MenuDiary.h"
#include "contract/linux/menus/MenuWorld.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::Contains;

constexpr int thousands = 100'000;

class LongLevel : public ::testing::Test {
protected:
  LongLevel() {
    menu.delegate = &diary;
    world.presenter().setActionTarget(&diary);
  }
  static MenuItem& add(Menu& to, std::string title) {
    MenuItem& item = to.add({});
    item.title = std::move(title);
    item.action = MenuAction::statusMenuDidSelected;
    return item;
  }
  static void fill(Menu& to, int count, const std::string& title = "Entry ") {
    for (int i = 0; i < count; ++i)
      add(to, title + std::to_string(i));
  }
  static void addAlternate(Menu& to, std::string title) {
    MenuItem& item = add(to, std::move(title));
    item.isAlternate = true;
    item.keyEquivalentModifierMask = modifier::option;
  }
  void popUp(const std::function<void(MenuHands&)>& user) {
    world.person = user;
    world.presenter().popUp(menu, {100, 500}, MenuFont::standard);
  }
  static ::testing::AssertionResult isAt(const std::string& title) {
    if (eventually([&] { return currentTitle() == title; }))
      return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the highlight is at '" << currentTitle() << "'";
  }
  static bool isSeen(std::size_t row) { return !openLevel()->rowGeometry(row).isEmpty(); }
  static QPoint arrow(ScrollDirection direction) {
    const QRect area = openLevel()->geometry();
    return {area.center().x(),
            direction == ScrollDirection::up ? area.top() + 4 : area.bottom() - 4};
  }

  MenuDiary diary;
  Menu menu{"menu"};
  LinuxWorld<> world;
};

TEST_F(LongLevel, AHundredThousandEntriesOpenScrollAndClose) {
  fill(menu, thousands);
  popUp([](MenuHands& hands) {
    EXPECT_EQ(openLevel()->rows().size(), std::size_t{thousands});
    EXPECT_LT(openLevel()->actions().size(), 100);
    press("End");
    EXPECT_TRUE(isAt("Entry 99999"));
    EXPECT_TRUE(isSeen(99'999));
    press("Home");
    EXPECT_TRUE(isAt("Entry 0"));
    press("Up");
    EXPECT_TRUE(isAt("Entry 99999"));
    press("Up");
    EXPECT_TRUE(isAt("Entry 99998"));
    EXPECT_TRUE(hands.choose("Entry 99998"));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Entry 99998"));
}

TEST_F(LongLevel, DownWrapsFromTheLastEntryToTheFirst) {
  fill(menu, 1000);
  popUp([](MenuHands&) {
    press("Up");
    EXPECT_TRUE(isAt("Entry 999"));
    press("Down");
    EXPECT_TRUE(isAt("Entry 0"));
  });
}

TEST_F(LongLevel, APageIsAsFarAsTheVisibleRows) {
  fill(menu, 1000);
  popUp([](MenuHands&) {
    press("Home");
    EXPECT_TRUE(isAt("Entry 0"));
    press("Next");
    EXPECT_TRUE(eventually([] { return *openLevel()->currentRow() > 10; }));
    const std::size_t page = *openLevel()->currentRow();
    EXPECT_LT(page, 60U);
    press("Next");
    EXPECT_TRUE(isAt("Entry " + std::to_string(2 * page)));
    press("Prior");
    EXPECT_TRUE(isAt("Entry " + std::to_string(page)));
    press("End");
    press("Next");
    EXPECT_TRUE(isAt("Entry 999"));
  });
}

TEST_F(LongLevel, KeysSkipSeparatorsHeadingsAndDisabledEntries) {
  add(menu, "Heading").action = MenuAction::none;
  fill(menu, 600);
  menu.addSeparator();
  add(menu, "Last");
  popUp([](MenuHands&) {
    press("End");
    EXPECT_TRUE(isAt("Last"));
    press("Up");
    EXPECT_TRUE(isAt("Entry 599"));
  });
}

TEST_F(LongLevel, TypingFindsAnEntryFarAway) {
  fill(menu, thousands);
  add(menu, "Zebra & Co");
  popUp([](MenuHands&) {
    press("z");
    EXPECT_TRUE(isAt("Zebra & Co"));
    EXPECT_TRUE(isSeen(thousands));
  });
}

TEST_F(LongLevel, TypingFindsAFolderAndLeavesItClosed) {
  fill(menu, 1000);
  MenuItem& folder = add(menu, "Zoo");
  folder.submenu = std::make_shared<Menu>("inner");
  folder.submenu->delegate = &diary;
  popUp([](MenuHands&) {
    xdotool({QStringLiteral("type"), QStringLiteral("zo")});
    EXPECT_TRUE(isAt("Zoo"));
  });
  EXPECT_EQ(diary.lines.size(), 3U);
}

TEST_F(LongLevel, AlternatesReplaceTheHighlightedEntry) {
  for (int pair = 0; pair < thousands; ++pair) {
    add(menu, "Open " + std::to_string(pair));
    addAlternate(menu, "Move " + std::to_string(pair));
  }
  popUp([](MenuHands& hands) {
    press("End");
    EXPECT_TRUE(isAt("Open 99999"));
    const QRect before = openLevel()->geometry();
    QElapsedTimer time;
    time.start();
    hands.holdOption();
    EXPECT_TRUE(isAt("Move 99999"));
    EXPECT_EQ(openLevel()->actions().back()->text(), "Move 99999");
    hands.releaseOption();
    EXPECT_TRUE(isAt("Open 99999"));
    EXPECT_EQ(openLevel()->geometry(), before);
    EXPECT_LT(time.elapsed(), 5000);
  });
}

TEST_F(LongLevel, TheWheelScrollsAndTheHighlightFollowsThePointer) {
  fill(menu, thousands);
  popUp([](MenuHands&) {
    movePointerTo(centerOf(*openLevel(), 5));
    EXPECT_TRUE(isAt("Entry 5"));
    for (int notch = 0; notch < 4; ++notch)
      xdotool({QStringLiteral("click"), QStringLiteral("5")});
    EXPECT_TRUE(eventually([] { return !isSeen(5) && openLevel()->currentRow() > 10U; }));
    for (int notch = 0; notch < 8; ++notch)
      xdotool({QStringLiteral("click"), QStringLiteral("4")});
    EXPECT_TRUE(isAt("Entry 5"));
  });
}

TEST_F(LongLevel, TheArrowsScrollWhileThePointerIsOnThem) {
  fill(menu, 1000);
  popUp([](MenuHands&) {
    movePointerTo(arrow(ScrollDirection::down));
    EXPECT_TRUE(eventually([] { return !isSeen(5); }));
    click(arrow(ScrollDirection::down));
    EXPECT_NE(openLevel(), nullptr) << "an arrow is no entry";
    movePointerTo(arrow(ScrollDirection::up));
    EXPECT_TRUE(eventually([] { return isSeen(0); }));
  });
}

TEST_F(LongLevel, ReturnBringsBackAHighlightThatWasScrolledOutOfSight) {
  fill(menu, 1000);
  popUp([](MenuHands&) {
    press("Down");
    press("Down");
    EXPECT_TRUE(isAt("Entry 1"));
    movePointerTo(arrow(ScrollDirection::down));
    EXPECT_TRUE(eventually([] { return !isSeen(5); }));
    movePointerTo({1000, 700});
    press("Return");
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Entry 1"));
}

TEST_F(LongLevel, TheSpaceBarChooses) {
  fill(menu, 1000);
  popUp([](MenuHands&) {
    press("End");
    EXPECT_TRUE(isAt("Entry 999"));
    press("space");
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Entry 999"));
}

TEST_F(LongLevel, PressingDraggingAndLettingGoChoosesAnEntry) {
  fill(menu, thousands);
  popUp([](MenuHands&) {
    movePointerTo(centerOf(*openLevel(), 1));
    xdotool({QStringLiteral("mousedown"), QStringLiteral("1")});
    movePointerTo(centerOf(*openLevel(), 4));
    EXPECT_TRUE(isAt("Entry 4"));
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Entry 4"));
}

TEST_F(LongLevel, AClickChoosesTheEntryThatWasScrolledThere) {
  fill(menu, thousands);
  popUp([](MenuHands&) {
    press("End");
    EXPECT_TRUE(isAt("Entry 99999"));
    click(centerOf(*openLevel(), 99'990));
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Entry 99990"));
}

TEST_F(LongLevel, AClickOutsideClosesIt) {
  fill(menu, thousands);
  popUp([](MenuHands&) {
    click({1000, 700});
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_EQ(diary.lines.size(), 3U);
}

TEST_F(LongLevel, LongAndShortLevelsOpenEachOther) {
  add(menu, "Folder").submenu = std::make_shared<Menu>("long");
  fill(*menu.items[0]->submenu, 1000);
  MenuItem& inner = add(*menu.items[0]->submenu, "Inner");
  inner.submenu = std::make_shared<Menu>("short");
  add(*inner.submenu, "Innermost").submenu = std::make_shared<Menu>("long again");
  fill(*inner.submenu->items[0]->submenu, 1000, "File ");
  popUp([](MenuHands& hands) {
    EXPECT_TRUE(hands.openSubmenu("Folder"));
    press("End");
    EXPECT_TRUE(isAt("Inner"));
    EXPECT_TRUE(hands.openSubmenu("Inner"));
    EXPECT_TRUE(hands.openSubmenu("Innermost"));
    EXPECT_TRUE(isAt("File 0"));
    hands.closeSubmenu();
    EXPECT_TRUE(isAt("Innermost"));
    hands.closeSubmenu();
    EXPECT_TRUE(isAt("Inner"));
    EXPECT_TRUE(hands.openSubmenu("Inner"));
    EXPECT_TRUE(hands.openSubmenu("Innermost"));
    press("End");
    EXPECT_TRUE(isAt("File 999"));
    press("Return");
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen File 999"));
}

TEST_F(LongLevel, ThePointerOpensSubmenusFarDown) {
  for (int folder = 0; folder < 2000; ++folder) {
    MenuItem& item = add(menu, "Folder " + std::to_string(folder));
    item.submenu = std::make_shared<Menu>("inner " + std::to_string(folder));
    add(*item.submenu, "Inside " + std::to_string(folder));
  }
  popUp([](MenuHands&) {
    const MenuPopup* outer = openLevel();
    press("End");
    EXPECT_TRUE(isAt("Folder 1999"));
    movePointerTo(centerOf(*outer, 1990));
    EXPECT_TRUE(eventually([&] { return openLevel() != outer; }));
    EXPECT_EQ(openLevel()->rows().at(0)->title, "Inside 1990");
    click(centerOf(*openLevel(), 0));
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Inside 1990"));
}

TEST_F(LongLevel, OnlySubmenusOfVisibleRowsAreCreated) {
  for (int folder = 0; folder < 2000; ++folder)
    add(menu, "Folder " + std::to_string(folder)).submenu = std::make_shared<Menu>("inner");
  popUp([](MenuHands&) {
    for (int page = 0; page < 30; ++page)
      press("Next");
    EXPECT_TRUE(eventually([] { return *openLevel()->currentRow() > 700; }));
    EXPECT_LT(openLevel()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly).size(), 150);
  });
}

} // namespace
} // namespace tavrel
