#import "platform/macos/MacApplications.h"

#import "platform/macos/Conversions.h"

#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>

// Deprecated, but nothing has replaced process serial numbers and what is known by them.
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

namespace tavrel {

namespace {

constexpr auto everything = static_cast<UInt32>(kProcessDictionaryIncludeAllInformationMask);

std::optional<std::string> textOrNothing(NSString* text) {
  return text ? std::optional(stringOf(text)) : std::nullopt;
}

ProcessSerialNumber serialNumberOf(pid_t process) {
  ::ProcessSerialNumber number{};
  return GetProcessForPID(process, &number) == noErr
             ? ProcessSerialNumber{number.highLongOfPSN, number.lowLongOfPSN}
             : ProcessSerialNumber{};
}

RunningApplication describe(NSRunningApplication* running) {
  NSURL* const place = running.bundleURL ? running.bundleURL : running.executableURL;
  return {textOrNothing(running.localizedName), textOrNothing(place.path),
          running.processIdentifier, serialNumberOf(running.processIdentifier)};
}

// The system starts its own before it keeps dates.
NSComparisonResult byLaunch(NSRunningApplication* one, NSRunningApplication* other) {
  NSDate* const never = NSDate.distantPast;
  NSDate* const first = one.launchDate ? one.launchDate : never;
  return [first compare:other.launchDate ? other.launchDate : never];
}

NSArray<NSRunningApplication*>* applicationsByLaunch() {
  return [NSWorkspace.sharedWorkspace.runningApplications
      sortedArrayWithOptions:NSSortStable
             usingComparator:^NSComparisonResult(id one, id other) {
               return byLaunch(one, other);
             }];
}

} // namespace

std::optional<RunningApplication> MacApplications::active() {
  NSRunningApplication* const front = NSWorkspace.sharedWorkspace.frontmostApplication;
  return front ? std::optional(describe(front)) : std::nullopt;
}

std::vector<RunningApplication> MacApplications::launched() {
  std::vector<RunningApplication> result;
  for (NSRunningApplication* each in applicationsByLaunch())
    if (each.activationPolicy == NSApplicationActivationPolicyRegular && !each.terminated)
      result.push_back(describe(each));
  return result;
}

bool MacApplications::bringToFront(ProcessSerialNumber process) {
  const ::ProcessSerialNumber number{process.high, process.low};
  pid_t identifier = 0;
  if (GetProcessPID(&number, &identifier) != noErr)
    return false;
  NSRunningApplication* const running =
      [NSRunningApplication runningApplicationWithProcessIdentifier:identifier];
  return [running activateWithOptions:NSApplicationActivateIgnoringOtherApps];
}

std::optional<PropertyList> MacApplications::processInformation(ProcessSerialNumber process) {
  const ::ProcessSerialNumber number{process.high, process.low};
  const CFOwned<CFDictionaryRef> information(ProcessInformationCopyDictionary(&number, everything));
  if (!information)
    return std::nullopt;
  return PropertyList(dictionaryOf(information.get()));
}

} // namespace tavrel
