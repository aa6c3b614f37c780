#include "platform/memory/MenuText.h"

#include "base/Modifiers.h"
#include "platform/memory/NamedImageContent.h"
#include "support/MenuEntries.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

class Picture final : public NamedImageContent {
public:
  explicit Picture(std::string name) : name_(std::move(name)) {}
  [[nodiscard]] std::string name() const override { return name_; }

private:
  std::string name_;
};

ImageLayer layer(std::string name) {
  return {std::make_shared<Picture>(std::move(name)), menuIconSize};
}

MenuItem folder() {
  MenuItem item = entry("Work");
  item.submenu = std::make_shared<Menu>("/work");
  item.submenu->add(entry("Inside"));
  return item;
}

MenuItem alternate() {
  MenuItem item = entry("Work");
  item.action = MenuAction::statusMenuDidSelected;
  item.keyEquivalentModifierMask = modifier::option;
  item.isAlternate = true;
  item.image = Image{{layer("folder"), layer("move_badge")}, menuIconSize};
  return item;
}

TEST(MenuText, EverythingShowsWhatAMenuHolds) {
  Menu menu;
  menu.add(folder());
  menu.add(alternate());
  menu.addSeparator().hidden = true;
  menu.add(entry("?? Gone")).enabled = false;
  EXPECT_EQ(menuText(menu, MenuTextDetail::everything),
            "Work (/work)\n"
            "  Inside\n"
            "Work ⌥ [alternate] <statusMenuDidSelected> {folder+move_badge 16x16}\n"
            "---- [hidden]\n"
            "?? Gone [disabled]\n");
}

TEST(MenuText, VisibleRowsLeaveOutWhatNobodySees) {
  Menu menu;
  menu.add(folder());
  menu.add(alternate());
  menu.addSeparator();
  MenuItem& ticked = menu.add(entry("Ticked"));
  ticked.state = MenuItemState::on;
  ticked.indentation = 1;
  ticked.keyEquivalent = "k";
  ticked.keyEquivalentModifierMask = modifier::command | modifier::shift;
  EXPECT_EQ(menuText(menu, MenuTextDetail::visibleRows), "Work (/work)\n"
                                                         "  Inside\n"
                                                         "----\n"
                                                         "  ✓ Ticked ⇧⌘k\n");
}

} // namespace
} // namespace tavrel
