#include "contract/WebContract.h"

#import "platform/macos/Conversions.h"
#include "platform/macos/MacWeb.h"
#include "support/TemporaryFolder.h"

namespace tavrel {
namespace {

/// The server of tests/support/web_server.py, ended with the test.
class MacWebWorld {
public:
  MacWebWorld() {
    NSPipe* const printed = [NSPipe pipe];
    server_.executableURL = fileUrl("/usr/bin/env");
    server_.arguments =
        nsStrings({"python3", TAVREL_FIXTURES "/../support/web_server.py", folder_.path()});
    server_.standardInput = input_;
    server_.standardOutput = printed;
    EXPECT_TRUE([server_ launchAndReturnError:nil]);
    while (!port_.ends_with('\n')) {
      const Bytes more = bytesOf(printed.fileHandleForReading.availableData);
      if (more.empty())
        break;
      port_.append(more.begin(), more.end());
    }
    port_ = port_.substr(0, port_.find_first_of(" \n"));
  }
  ~MacWebWorld() {
    [input_.fileHandleForWriting closeFile];
    [server_ terminate];
    [server_ waitUntilExit];
  }
  MacWebWorld(const MacWebWorld&) = delete;
  MacWebWorld& operator=(const MacWebWorld&) = delete;

  Web& web() { return adapter_; }
  std::string publish(const PropertyList& list) {
    NSData* const data =
        [NSPropertyListSerialization dataWithPropertyList:nsPropertyList(list)
                                                   format:NSPropertyListXMLFormat_v1_0
                                                  options:0
                                                    error:nil];
    const Bytes bytes = bytesOf(data);
    folder_.write("published", {bytes.begin(), bytes.end()});
    return "http://localhost:" + port_ + "/published";
  }

private:
  TemporaryFolder folder_;
  NSTask* server_ = [[NSTask alloc] init];
  NSPipe* input_ = [NSPipe pipe];
  std::string port_;
  MacWeb adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, WebContract, MacWebWorld);

} // namespace
} // namespace tavrel
