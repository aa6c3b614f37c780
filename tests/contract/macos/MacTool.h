#pragma once

#import "platform/macos/Conversions.h"

namespace tavrel {

/// Runs a program of the system to its end; what it printed.
inline std::string outputOfTool(const std::string& path, const std::vector<std::string>& arguments,
                                const std::string& input = {}) {
  NSTask* const task = [[NSTask alloc] init];
  NSPipe* const in = [NSPipe pipe];
  NSPipe* const out = [NSPipe pipe];
  task.executableURL = fileUrl(path);
  task.arguments = nsStrings(arguments);
  task.environment = @{@"LANG" : @"en_US.UTF-8", @"HOME" : NSHomeDirectory()};
  task.standardInput = in;
  task.standardOutput = out;
  if (![task launchAndReturnError:nil])
    return {};
  [in.fileHandleForWriting writeData:nsData(Bytes(input.begin(), input.end()))];
  [in.fileHandleForWriting closeFile];
  const Bytes printed = bytesOf([out.fileHandleForReading readDataToEndOfFile]);
  [task waitUntilExit];
  return {printed.begin(), printed.end()};
}

} // namespace tavrel
