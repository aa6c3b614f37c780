#import "platform/macos/MacPresenter.h"

#import "platform/macos/Conversions.h"
#import "platform/macos/NativeMenu.h"

namespace tavrel {

struct MacPresenter::Panel {
  NSPanel* popupPanel;
  TVNativeMenu* last; ///< an action that the system sends late still finds its target
};

namespace {

NSPanel* unseenPanel() {
  const NSWindowStyleMask style = NSWindowStyleMaskBorderless | NSWindowStyleMaskNonactivatingPanel;
  NSPanel* const panel = [[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, 1, 1)
                                                    styleMask:style
                                                      backing:NSBackingStoreBuffered
                                                        defer:NO];
  panel.opaque = NO;
  panel.alphaValue = 0;
  panel.hasShadow = NO;
  panel.ignoresMouseEvents = YES;
  panel.releasedWhenClosed = NO;
  panel.level = NSPopUpMenuWindowLevel;
  panel.collectionBehavior =
      NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorFullScreenAuxiliary;
  return panel;
}

NSFont* menuFont(MenuFont font) {
  return [NSFont menuFontOfSize:font == MenuFont::small ? NSFont.smallSystemFontSize : 0];
}

// The pop-up begins where the panel's bottom left corner is; the menu is ours only meanwhile.
void popUpAt(NSPanel* panel, NSMenu* menu, NSPoint where) {
  [panel setFrameOrigin:where];
  [panel orderFrontRegardless];
  [menu popUpMenuPositioningItem:nil atLocation:NSZeroPoint inView:panel.contentView];
  [panel orderOut:nil];
}

} // namespace

MacPresenter::MacPresenter() : panel_(std::make_unique<Panel>()) {
  panel_->popupPanel = unseenPanel();
}

MacPresenter::~MacPresenter() = default;

void MacPresenter::popUp(Menu& menu, Point where, MenuFont font) {
  if (tracking_.isOpen())
    return;
  tracking_.finish(); // of a menu that was filled and never shown
  @autoreleasepool {
    const std::shared_ptr<Menu> borrowed(std::shared_ptr<Menu>(), &menu);
    TVNativeMenu* const native = [TVNativeMenu menuOf:borrowed tracking:&tracking_];
    panel_->last = native;
    NSFont* const before = native.font;
    native.font = menuFont(font);
    popUpAt(panel_->popupPanel, native, nsPoint(where));
    native.font = before;
    tracking_.finish();
    [native detach];
  }
}

Point MacPresenter::pointerLocation() {
  return pointOf(NSEvent.mouseLocation);
}

} // namespace tavrel
