#import "platform/macos/MacWorkspace.h"

#include "platform/common/VersionNumber.h"
#import "platform/macos/Conversions.h"
#include "platform/macos/MacTransfer.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

namespace tavrel {

namespace {

constexpr std::int32_t applicationNotFound = -10814;
constexpr std::int32_t launchFailed = -10827;

bool isReachable(NSURL* file) {
  return file && [NSFileManager.defaultManager fileExistsAtPath:file.path];
}

bool openReachable(NSURL* file) {
  return isReachable(file) && [NSWorkspace.sharedWorkspace openURL:file];
}

NSArray<NSURL*>* nsUrls(const std::vector<std::string>& urls) {
  NSMutableArray<NSURL*>* const result = [NSMutableArray array];
  for (const std::string& each : urls)
    if (NSURL* url = nsUrl(each))
      [result addObject:url];
  return result;
}

} // namespace

bool MacWorkspace::openFile(const std::string& path) {
  return openReachable(fileUrl(path));
}

bool MacWorkspace::openUrl(const std::string& url) {
  NSURL* const parsed = nsUrl(url);
  if (parsed.scheme.length == 0)
    return false;
  return parsed.isFileURL ? openReachable(parsed) : [NSWorkspace.sharedWorkspace openURL:parsed];
}

std::int32_t MacWorkspace::openUrlsWithApplication(const LaunchRequest& request) {
  NSURL* const application = nsUrl(request.applicationUrl);
  if (!application.isFileURL || !isReachable(application))
    return applicationNotFound;
  NSArray<NSURL*>* const items = nsUrls(request.itemUrls);
  LSLaunchURLSpec launch{};
  launch.appURL = (__bridge CFURLRef)application;
  launch.itemURLs = (__bridge CFArrayRef)items;
  launch.launchFlags = kLSLaunchDefaults;
  const OSStatus status = LSOpenFromURLSpec(&launch, nullptr);
  if (status == noErr)
    return 0;
  return status == applicationNotFound ? applicationNotFound : launchFailed;
}

bool MacWorkspace::performFileOperation(FileOperation operation, const std::string& source,
                                        const std::string& destination,
                                        const std::vector<std::string>& names) {
  return transferNames(operation, source, destination, names);
}

bool MacWorkspace::removeFile(const std::string& path) {
  NSURL* const file = fileUrl(path);
  return file && [NSFileManager.defaultManager removeItemAtURL:file error:nil];
}

std::int32_t MacWorkspace::systemVersion() {
  const NSOperatingSystemVersion version = NSProcessInfo.processInfo.operatingSystemVersion;
  return bcdVersion({version.majorVersion, version.minorVersion, version.patchVersion});
}

} // namespace tavrel
