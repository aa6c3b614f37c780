#include "contract/PresenterContract.h"
#include "platform/memory/MemoryPresenter.h"

namespace tavrel {
namespace {

class MemoryHands final : public MenuHands {
public:
  explicit MemoryHands(OpenMenu& menu) : menu_(menu) {}

  std::vector<std::string> rows() override {
    std::vector<std::string> titles;
    for (const MenuItem* row : menu_.rows())
      titles.push_back(row->title);
    return titles;
  }
  void holdOption() override { menu_.holdOption(); }
  void releaseOption() override { menu_.releaseOption(); }
  bool openSubmenu(const std::string& title) override { return menu_.openSubmenu(title); }
  void closeSubmenu() override { menu_.closeSubmenu(); }
  bool choose(const std::string& title) override { return menu_.choose({title}); }

private:
  OpenMenu& menu_;
};

class MemoryPresenterWorld {
public:
  MemoryPresenterWorld() {
    presenter_.control.person = [this](OpenMenu& menu) {
      MemoryHands hands(menu);
      person(hands);
    };
  }
  Presenter& presenter() { return presenter_; }
  void holdOption() { presenter_.control.option = OptionKey::down; }
  void releaseOption() { presenter_.control.option = OptionKey::up; }
  void movePointer(Point to) { presenter_.control.pointer = to; }

  std::function<void(MenuHands&)> person = [](MenuHands&) {};

private:
  MemoryPresenter presenter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, PresenterContract, MemoryPresenterWorld);

TEST(MemoryPresenter, WritesDownWhatWasShown) {
  MemoryPresenter presenter;
  Menu menu;
  presenter.popUp(menu, {3, 4}, MenuFont::small);
  ASSERT_EQ(presenter.control.shown.size(), 1U);
  EXPECT_EQ(presenter.control.shown[0].menu, &menu);
  EXPECT_EQ(presenter.control.shown[0].where, (Point{3, 4}));
  EXPECT_EQ(presenter.control.shown[0].font, MenuFont::small);
}

TEST(MemoryPresenter, ChoosesByAPathOfTitles) {
  MemoryPresenter presenter;
  MenuDiary diary;
  presenter.setActionTarget(&diary);
  Menu menu;
  MenuItem& group = menu.add({});
  group.title = "Group";
  group.submenu = std::make_shared<Menu>();
  MenuItem& inner = group.submenu->add({});
  inner.title = "Inner";
  inner.action = MenuAction::statusMenuDidSelected;
  presenter.control.person = [](OpenMenu& open) {
    EXPECT_FALSE(open.choose({"Inner"}));
    EXPECT_TRUE(open.choose({"Group", "Inner"}));
  };
  presenter.popUp(menu, {}, MenuFont::standard);
  EXPECT_THAT(diary.lines, ElementsAre("chosen Inner"));
}

} // namespace
} // namespace tavrel
