#include "contract/StatusBarContract.h"
#include "platform/memory/MemoryPresenter.h"
#include "platform/memory/MemoryStatusBar.h"

namespace tavrel {
namespace {

class MemoryStatusBarWorld {
public:
  MemoryStatusBarWorld() : statusBar_(presenter_) {
    presenter_.control.person = [this](OpenMenu& menu) {
      whileOpen();
      EXPECT_TRUE(title_.empty() || menu.choose({title_}));
    };
  }

  StatusBar& statusBar() { return statusBar_; }
  Presenter& presenter() { return presenter_; }
  Image picture(std::size_t which) { return {{{pictures_[which], menuIconSize}}, menuIconSize}; }
  bool shows(std::size_t which) {
    const auto& items = statusBar_.control.items;
    return items.size() == 1 && items[0]->images.back().layers[0].content == pictures_[which];
  }
  bool isEmpty() { return statusBar_.control.items.empty(); }
  void click() { statusBar_.click(); }
  void choose(const std::string& title) {
    title_ = title;
    statusBar_.click();
  }

  std::function<void()> whileOpen = [] {};

private:
  MemoryPresenter presenter_;
  MemoryStatusBar statusBar_;
  std::shared_ptr<ImageContent> pictures_[2] = {std::make_shared<ImageContent>(),
                                                std::make_shared<ImageContent>()};
  std::string title_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, StatusBarContract, MemoryStatusBarWorld);

TEST(MemoryStatusBar, AClickOnAnItemWithoutAMenuDoesNothing) {
  MemoryPresenter presenter;
  MemoryStatusBar statusBar(presenter);
  const auto item = statusBar.addItem(-1.0);
  statusBar.click();
  EXPECT_TRUE(presenter.control.shown.empty());
}

} // namespace
} // namespace tavrel
