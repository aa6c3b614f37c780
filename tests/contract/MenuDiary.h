#pragma once

#include "platform/MenuActionTarget.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// Writes down what a presenter tells, and does what a test wants done meanwhile.
class MenuDiary final : public MenuDelegate, public MenuActionTarget {
public:
  std::vector<std::string> lines;
  std::function<void(Menu&)> update = [](Menu&) {};
  std::function<void(MenuItem&)> act = [](MenuItem&) {};

  void menuWillOpen(Menu& menu) override { lines.push_back("will open " + menu.title); }
  void menuNeedsUpdate(Menu& menu) override {
    lines.push_back("needs update " + menu.title);
    update(menu);
  }
  void menuDidClose(Menu& menu) override { lines.push_back("did close " + menu.title); }
  void menuItemChosen(MenuItem& item) override {
    lines.push_back("chosen " + item.title);
    act(item);
  }
};

} // namespace tavrel
