#import "platform/macos/MacServices.h"

#import "platform/macos/Conversions.h"
#import "platform/macos/MacPasteboard.h"
#include "platform/macos/OfThisDesktop.h"

/// Receives the message of the information property list's service entry.
@interface TVServiceReceiver : NSObject
@property(nonatomic) tavrel::ServicesProvider* provider;
- (void)invokeTavrelPopup:(NSPasteboard*)pasteboard
                 userData:(NSString*)userData
                    error:(NSString* __autoreleasing*)error;
@end

@implementation TVServiceReceiver

- (void)invokeTavrelPopup:(NSPasteboard*)pasteboard
                 userData:(NSString*)userData
                    error:(NSString* __autoreleasing*)error {
  if (!self.provider)
    return;
  std::string trouble;
  @autoreleasepool {
    tavrel::MacPasteboard contents(pasteboard);
    self.provider->invokeTavrelPopup(&contents, tavrel::stringOf(userData), &trouble);
  }
  if (error && !trouble.empty())
    *error = tavrel::nsString(trouble);
}

@end

namespace tavrel {

bool MacServices::performService(const std::string& name, Pasteboard& pasteboard) {
  const auto* known = ofThisDesktop<MacPasteboard>(&pasteboard);
  return known && !name.empty() && NSPerformService(nsString(name), known->nsPasteboard());
}

// The application keeps the receiver.
void MacServices::setServicesProvider(ServicesProvider* provider) {
  TVServiceReceiver* receiver = nil;
  if (provider) {
    receiver = [[TVServiceReceiver alloc] init];
    receiver.provider = provider;
  }
  NSApplication.sharedApplication.servicesProvider = receiver;
}

} // namespace tavrel
