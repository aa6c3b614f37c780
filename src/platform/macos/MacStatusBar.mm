#import "platform/macos/MacStatusBar.h"

#import "platform/macos/MacImage.h"
#import "platform/macos/NativeMenu.h"

/// Finishes the tracking once the system has sent all events of a click.
@interface TVTrackingEnd : NSObject
@property(nonatomic) tavrel::MenuTracking* tracking;
- (void)finishLater;
@end

@implementation TVTrackingEnd

// In the default run loop mode only: the chosen entry is reported after the menu has closed, in the
// mode in which it was tracked.
- (void)finishLater {
  [self performSelector:@selector(finish)
             withObject:nil
             afterDelay:0
                inModes:@[ NSDefaultRunLoopMode ]];
}

- (void)finish {
  @autoreleasepool {
    self.tracking->finish();
  }
}

@end

namespace tavrel {

namespace {

class MacStatusItem final : public StatusItem {
public:
  MacStatusItem(double length, MenuTracking& tracking)
      : item_([NSStatusBar.systemStatusBar statusItemWithLength:length]), tracking_(tracking),
        end_([TVTrackingEnd new]) {
    end_.tracking = &tracking;
  }
  ~MacStatusItem() override {
    setMenu(nullptr);
    [NSStatusBar.systemStatusBar removeStatusItem:item_];
  }
  MacStatusItem(const MacStatusItem&) = delete;
  MacStatusItem& operator=(const MacStatusItem&) = delete;

  void setImage(const Image& image) override { item_.button.image = nsImage(image); }
  void setHighlightMode(bool) override {}
  void setMenu(Menu* menu) override;

private:
  NSStatusItem* item_;
  MenuTracking& tracking_;
  TVTrackingEnd* end_;
  TVNativeMenu* menu_ = nil;
};

void MacStatusItem::setMenu(Menu* menu) {
  [menu_ cancelTracking];
  [menu_ detach];
  menu_ = nil;
  if (menu) {
    menu_ = [TVNativeMenu menuOf:std::shared_ptr<Menu>(std::shared_ptr<Menu>(), menu)
                        tracking:&tracking_];
    TVTrackingEnd* const end = end_;
    menu_.whenClosed = ^{
      [end finishLater];
    };
  }
  item_.menu = menu_;
}

} // namespace

std::unique_ptr<StatusItem> MacStatusBar::addItem(double length) {
  return std::make_unique<MacStatusItem>(length, tracking_);
}

} // namespace tavrel
