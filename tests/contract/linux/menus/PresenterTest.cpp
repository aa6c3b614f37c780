#include "contract/PresenterContract.h"
#include "contract/linux/menus/MenuWorld.h"

#include <QElapsedTimer>

#include <xcb/xcb.h>

#include <cstdlib>

namespace tavrel {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, PresenterContract, LinuxWorld<>);
INSTANTIATE_TYPED_TEST_SUITE_P(LinuxLongLevels, PresenterContract, LinuxWorld<0>);

/// Another program at the same display.
class OtherClient {
public:
  ~OtherClient() { xcb_disconnect(server_); }

  [[nodiscard]] bool anyKeyIsDown() {
    const Reply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(server_, xcb_query_keymap(server_), nullptr), &std::free);
    return std::any_of(std::begin(reply->keys), std::end(reply->keys),
                       [](int k) { return k != 0; });
  }
  [[nodiscard]] bool grab() {
    const Reply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(server_,
                                xcb_grab_keyboard(server_, 1, root(), XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr),
        &std::free);
    const Reply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(server_,
                               xcb_grab_pointer(server_, 1, root(), XCB_EVENT_MASK_BUTTON_PRESS,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                                                XCB_NONE, XCB_CURRENT_TIME),
                               nullptr),
        &std::free);
    return keyboard->status == XCB_GRAB_STATUS_SUCCESS &&
           pointer->status == XCB_GRAB_STATUS_SUCCESS;
  }
  void letGo() {
    xcb_ungrab_keyboard(server_, XCB_CURRENT_TIME);
    xcb_ungrab_pointer(server_, XCB_CURRENT_TIME);
    xcb_flush(server_);
  }

private:
  template <typename Type> using Reply = std::unique_ptr<Type, decltype(&std::free)>;
  [[nodiscard]] xcb_window_t root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(server_)).data->root;
  }
  xcb_connection_t* server_ = xcb_connect(nullptr, nullptr);
};

class LinuxPresenterTest : public ::testing::Test {
protected:
  LinuxPresenterTest() {
    menu.delegate = &diary;
    world.presenter().setActionTarget(&diary);
  }
  MenuItem& add(Menu& to, std::string title) {
    MenuItem& item = to.add({});
    item.title = std::move(title);
    item.action = MenuAction::statusMenuDidSelected;
    return item;
  }
  MenuItem& addAlternate(Menu& to, std::string title) {
    MenuItem& item = add(to, std::move(title));
    item.isAlternate = true;
    item.keyEquivalentModifierMask = modifier::option;
    return item;
  }
  void popUp(Point where = {100, 500}) { world.presenter().popUp(menu, where, MenuFont::standard); }

  OtherClient otherClient;
  MenuDiary diary;
  Menu menu{"menu"};
  LinuxWorld<> world;
};

TEST_F(LinuxPresenterTest, AClickChoosesAnEntry) {
  add(menu, "First");
  add(menu, "Second");
  world.person = [](MenuHands&) {
    click(centerOf(*openLevel(), 1));
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  };
  popUp();
  EXPECT_THAT(diary.lines, ::testing::Contains("chosen Second"));
}

TEST_F(LinuxPresenterTest, AClickOnAFolderChoosesItAlthoughItsSubmenuIsOpen) {
  MenuItem& folder = add(menu, "Folder");
  folder.submenu = std::make_shared<Menu>("inner");
  folder.submenu->delegate = &diary;
  add(*folder.submenu, "Inside");
  world.person = [](MenuHands& hands) {
    const QPoint place = centerOf(*openLevel(), 0);
    EXPECT_TRUE(hands.openSubmenu("Folder"));
    click(place);
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  };
  popUp();
  EXPECT_THAT(diary.lines, ElementsAre("will open menu", "needs update menu", "will open inner",
                                       "needs update inner", "chosen Folder", "did close inner",
                                       "did close menu"));
}

TEST_F(LinuxPresenterTest, AClickOutsideClosesTheMenu) {
  add(menu, "Open");
  world.person = [](MenuHands&) {
    click({1000, 700});
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  };
  popUp();
  EXPECT_EQ(diary.lines.size(), 3U);
}

TEST_F(LinuxPresenterTest, NoKeyIsDownWhenASubmenuThatKeysOpenIsFilled) {
  add(menu, "Folder").submenu = std::make_shared<Menu>("inner");
  menu.items[0]->submenu->delegate = &diary;
  bool keyDown = true;
  diary.update = [&](Menu& opened) { keyDown = &opened == &menu || otherClient.anyKeyIsDown(); };
  world.person = [](MenuHands& hands) { EXPECT_TRUE(hands.openSubmenu("Folder")); };
  popUp();
  EXPECT_FALSE(keyDown);
}

TEST_F(LinuxPresenterTest, KeysAndPointerWorkOnceAnotherProgramReleasesThem) {
  add(menu, "First");
  add(menu, "Second");
  ASSERT_TRUE(otherClient.grab());
  world.person = [&](MenuHands&) {
    otherClient.letGo();
    EXPECT_TRUE(eventually([] {
      press("Down");
      return openLevel()->activeAction() != nullptr;
    }));
    click({1000, 700});
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  };
  popUp();
}

TEST_F(LinuxPresenterTest, NoGrabIsHeldWhileAChosenEntryIsCarriedOut) {
  add(menu, "Open");
  bool free = false;
  diary.act = [&](MenuItem&) { free = otherClient.grab() && !openLevel(); };
  world.person = [](MenuHands& hands) { EXPECT_TRUE(hands.choose("Open")); };
  popUp();
  EXPECT_TRUE(free);
}

TEST_F(LinuxPresenterTest, TheHighlightAndTheWidthStayAsOptionGoesDown) {
  add(menu, "Open");
  addAlternate(menu, "Move the selected files into this folder");
  add(menu, "Last");
  world.person = [](MenuHands& hands) {
    press("Down");
    EXPECT_TRUE(eventually([] { return openLevel()->activeAction() != nullptr; }));
    const QRect before = openLevel()->geometry();
    hands.holdOption();
    EXPECT_EQ(currentTitle(), "Move the selected files into this folder");
    EXPECT_EQ(openLevel()->geometry(), before);
    hands.releaseOption();
    EXPECT_EQ(currentTitle(), "Open");
  };
  popUp();
}

TEST_F(LinuxPresenterTest, AnOpenSubmenuStaysOpenForTheAlternatesInside) {
  MenuItem& folder = add(menu, "Folder");
  folder.submenu = std::make_shared<Menu>("inner");
  add(*folder.submenu, "Inside");
  addAlternate(*folder.submenu, "Move inside");
  addAlternate(menu, "Move");
  world.person = [](MenuHands& hands) {
    const MenuPopup* outer = openLevel();
    EXPECT_TRUE(hands.openSubmenu("Folder"));
    hands.holdOption();
    EXPECT_THAT(hands.rows(), ElementsAre("Move inside"));
    EXPECT_EQ(outer->actions().front()->text(), "Folder");
    hands.closeSubmenu();
    EXPECT_TRUE(eventually([&] { return outer->actions().front()->text() == "Move"; }));
    hands.releaseOption();
  };
  popUp();
}

TEST_F(LinuxPresenterTest, ThousandsOfAlternatesComeAndGoAtOnce) {
  for (int pair = 0; pair < 3000; ++pair) {
    add(menu, "Open " + std::to_string(pair));
    addAlternate(menu, "Move " + std::to_string(pair));
  }
  world.person = [](MenuHands& hands) {
    QElapsedTimer time;
    time.start();
    hands.holdOption();
    EXPECT_EQ(hands.rows().back(), "Move 2999");
    hands.releaseOption();
    EXPECT_LT(time.elapsed(), 5000) << "one layout a row takes minutes";
  };
  popUp();
}

TEST_F(LinuxPresenterTest, GroupsTenThousandDeepAreFilledAsTheyOpen) {
  Menu* level = &menu;
  for (int depth = 0; depth < 10'000; ++depth) {
    MenuItem& group = add(*level, "Group");
    group.submenu = std::make_shared<Menu>("group");
    group.submenu->delegate = &diary;
    level = group.submenu.get();
  }
  world.person = [](MenuHands& hands) {
    EXPECT_TRUE(hands.openSubmenu("Group"));
    EXPECT_TRUE(hands.openSubmenu("Group"));
  };
  popUp();
  EXPECT_EQ(diary.lines.size(), 9U);
}

TEST_F(LinuxPresenterTest, AMenuStaysOnTheScreen) {
  for (int row = 0; row < 10; ++row)
    add(menu, "Entry");
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  for (const Point corner : {Point{0, 0}, Point{1e9, 0}, Point{1e9, 1e9}, Point{-1e9, -1e9}}) {
    QRect place;
    world.person = [&](MenuHands&) { place = openLevel()->geometry(); };
    popUp(corner);
    EXPECT_TRUE(screen.contains(place)) << corner.x << "," << corner.y;
    EXPECT_FALSE(place.isEmpty());
  }
}

TEST_F(LinuxPresenterTest, AMenuOpensWithItsTopLeftCornerAtThePoint) {
  add(menu, "Open");
  QRect place;
  world.person = [&](MenuHands&) { place = openLevel()->geometry(); };
  popUp({100, 500});
  EXPECT_EQ(place.topLeft(),
            QPoint(100, QGuiApplication::primaryScreen()->geometry().bottom() - 500));
}

TEST_F(LinuxPresenterTest, TheSmallFontIsSmaller) {
  add(menu, "Open");
  std::vector<int> heights;
  world.person = [&](MenuHands&) { heights.push_back(openLevel()->fontMetrics().height()); };
  popUp();
  world.presenter().popUp(menu, {100, 500}, MenuFont::small);
  ASSERT_EQ(heights.size(), 2U);
  EXPECT_LT(heights[1], heights[0]);
}

TEST_F(LinuxPresenterTest, TypingFindsAnEntry) {
  for (const char* title : {"Alpha", "Beta & Co", "Gamma"})
    add(menu, title);
  world.person = [](MenuHands&) {
    press("g");
    EXPECT_TRUE(eventually([] { return currentTitle() == "Gamma"; }));
  };
  popUp();
}

TEST_F(LinuxPresenterTest, TypingFindsAFolderAndLeavesItClosed) {
  add(menu, "Alpha");
  MenuItem& folder = add(menu, "Beta");
  folder.submenu = std::make_shared<Menu>("inner");
  folder.submenu->delegate = &diary;
  world.person = [](MenuHands&) {
    xdotool({QStringLiteral("type"), QStringLiteral("be")});
    EXPECT_TRUE(eventually([] { return currentTitle() == "Beta"; }));
  };
  popUp();
  EXPECT_EQ(diary.lines.size(), 3U);
}

TEST_F(LinuxPresenterTest, TheWheelScrollsALevelTallerThanTheScreen) {
  for (int row = 0; row < 200; ++row)
    add(menu, "Entry");
  world.person = [](MenuHands&) {
    movePointerTo(centerOf(*openLevel(), 5));
    EXPECT_TRUE(eventually([] { return openLevel()->currentRow() == 5U; }));
    const QRect before = openLevel()->rowGeometry(5);
    xdotool({QStringLiteral("click"), QStringLiteral("5")});
    EXPECT_TRUE(eventually([&] { return openLevel()->rowGeometry(5) != before; }));
  };
  popUp();
}

} // namespace
} // namespace tavrel
