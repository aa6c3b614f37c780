#include "contract/StatusBarContract.h"

#include "contract/macos/Skipping.h"
#include "platform/macos/MacPresenter.h"
#include "platform/macos/MacStatusBar.h"

namespace tavrel {
namespace {

class MacStatusBarWorld {
public:
  MacStatusBarWorld() { skipTest(needsHands); }
  StatusBar& statusBar() { return statusBar_; }
  Presenter& presenter() { return presenter_; }
  Image picture(std::size_t) { return {}; }
  bool shows(std::size_t) { return false; }
  bool isEmpty() { return false; }
  void click() {}
  void choose(const std::string&) {}

  std::function<void()> whileOpen = [] {};

private:
  MacPresenter presenter_;
  MacStatusBar statusBar_{presenter_.tracking()};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, StatusBarContract, MacStatusBarWorld);

TEST(MacStatusBar, AnItemTakesMenusAndImagesAndGoes) {
  MacPresenter presenter;
  MacStatusBar bar(presenter.tracking());
  Menu first("first");
  Menu second("second");
  const auto item = bar.addItem(-1.0);
  ASSERT_TRUE(item);
  item->setImage({});
  item->setMenu(&first);
  item->setMenu(&second);
  item->setMenu(nullptr);
}

} // namespace
} // namespace tavrel
