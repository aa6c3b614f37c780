#include "contract/PresenterContract.h"

#include "contract/macos/Skipping.h"
#import "platform/macos/Conversions.h"
#include "platform/macos/MacPresenter.h"

#import <AppKit/AppKit.h>

namespace tavrel {
namespace {

/// What can be done to an open menu from within.
class MacHands final : public MenuHands {
public:
  explicit MacHands(NSMenu* menu) : menu_(menu) {}

  std::vector<std::string> rows() override {
    std::vector<std::string> titles;
    for (NSMenuItem* each in menu_.itemArray)
      if (!each.hidden && !each.alternate)
        titles.push_back(stringOf(each.title));
    return titles;
  }
  void holdOption() override {}
  void releaseOption() override {}
  bool openSubmenu(const std::string&) override { return false; }
  void closeSubmenu() override {}
  bool choose(const std::string& title) override {
    const NSInteger place = [menu_ indexOfItemWithTitle:nsString(title)];
    if (place < 0 || ![menu_ itemAtIndex:place].enabled)
      return false;
    [menu_ performActionForItemAtIndex:place];
    [menu_ cancelTrackingWithoutAnimation];
    return true;
  }

private:
  NSMenu* menu_;
};

class MacPresenterWorld {
public:
  MacPresenterWorld() {
    skipTests({"ASubmenuIsFilledAsItOpensAndClosesWithTheMenu",
               "ASubmenuThatClosesWhileItsMenuStaysIsToldSo",
               "AnEntryThatOpensASubmenuCanBeChosenWhenItHasAnAction",
               "AlternatesComeAndGoWithTheOptionKey",
               "AMenuThatOpensWithOptionHeldShowsItsAlternates",
               "ThePointerIsToldFromTheBottomLeftCorner"},
              needsHands);
    MacPresenterWorld* const self = this;
    observer_ = [NSNotificationCenter.defaultCenter
        addObserverForName:NSMenuDidBeginTrackingNotification
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification* notification) {
                  NSMenu* const menu = notification.object;
                  [NSRunLoop.mainRunLoop performInModes:@[ NSEventTrackingRunLoopMode ]
                                                  block:^{
                                                    self->act(menu);
                                                  }];
                }];
  }
  ~MacPresenterWorld() { [NSNotificationCenter.defaultCenter removeObserver:observer_]; }
  MacPresenterWorld(const MacPresenterWorld&) = delete;
  MacPresenterWorld& operator=(const MacPresenterWorld&) = delete;

  Presenter& presenter() { return presenter_; }
  void holdOption() {}
  void releaseOption() {}
  void movePointer(Point) {}

  std::function<void(MenuHands&)> person = [](MenuHands&) {};

private:
  void act(NSMenu* menu) {
    const auto todo = person;
    MacHands hands(menu);
    todo(hands);
    [menu cancelTrackingWithoutAnimation];
  }

  MacPresenter presenter_;
  id observer_ = nil;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, PresenterContract, MacPresenterWorld);

} // namespace
} // namespace tavrel
