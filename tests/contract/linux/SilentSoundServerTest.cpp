#include "platform/linux/LinuxSounds.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"
#include "support/WaitFor.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tavrel {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

/// A sound server that takes callers and never says a word.
class SilentServer {
public:
  SilentServer() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path().copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(socket_, 8), 0);
  }
  ~SilentServer() { ::close(socket_); }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;

  [[nodiscard]] std::string path() const { return folder_.path("pulse"); }
  [[nodiscard]] bool wasCalled() const {
    pollfd caller{socket_, POLLIN, 0};
    return ::poll(&caller, 1, 0) == 1;
  }

private:
  TemporaryFolder folder_;
  int socket_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

TEST(LinuxSounds, AServerThatNeverAnswersKeepsNobodyWaiting) {
  const SilentServer server;
  const EnvironmentVariable named("PULSE_SERVER", "unix:" + server.path());
  const auto start = steady_clock::now();
  {
    LinuxSounds sounds(TAVREL_RESOURCES);
    EXPECT_TRUE(sounds.play("copy"));
    EXPECT_TRUE(waitFor([&] { return server.wasCalled(); }));
    EXPECT_TRUE(sounds.play("copy"));
    sounds.beep();
  }
  EXPECT_LT(steady_clock::now() - start, seconds(20));
}

} // namespace
} // namespace tavrel
