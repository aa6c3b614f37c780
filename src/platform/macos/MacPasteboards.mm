#import "platform/macos/MacPasteboards.h"

#import "platform/macos/Conversions.h"
#import "platform/macos/MacPasteboard.h"

namespace tavrel {

MacPasteboards::MacPasteboards()
    : general_(std::make_unique<MacPasteboard>(NSPasteboard.generalPasteboard)) {}

MacPasteboards::~MacPasteboards() {
  for (const auto& [name, pasteboard] : named_)
    [static_cast<MacPasteboard&>(*pasteboard).nsPasteboard() releaseGlobally];
}

Pasteboard& MacPasteboards::named(const std::string& name) {
  auto& pasteboard = named_[name];
  if (!pasteboard) {
    pasteboard = std::make_unique<MacPasteboard>([NSPasteboard pasteboardWithName:nsString(name)]);
    pasteboard->declareTypes({}); // a process that was killed left its contents to the session
  }
  return *pasteboard;
}

} // namespace tavrel
