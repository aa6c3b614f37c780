#include "platform/linux/sounds/LinuxSounds.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"
#include "support/WaitFor.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

/// A configuration of the sound system whose reader waits for a writer.
class StuckConfiguration {
public:
  StuckConfiguration() { EXPECT_EQ(::mkfifo(path().c_str(), 0600), 0); }

  [[nodiscard]] std::string path() const { return folder_.path("alsa.conf"); }

  /// Lets a reader go on; false when none waits.
  [[nodiscard]] bool release() const {
    const int writer = ::open(path().c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return writer >= 0 && ::close(writer) == 0;
  }

private:
  TemporaryFolder folder_;
};

TEST(LinuxSounds, ASoundSystemThatHangsDoesNotBlock) {
  const StuckConfiguration stuck;
  const EnvironmentVariable driver("CANBERRA_DRIVER", "alsa");
  const EnvironmentVariable configuration("ALSA_CONFIG_PATH", stuck.path());
  const auto start = steady_clock::now();
  LinuxSounds sounds(TAVREL_RESOURCES);
  EXPECT_TRUE(sounds.play("copy"));
  EXPECT_TRUE(sounds.play("Pop"));
  sounds.beep();
  EXPECT_LT(steady_clock::now() - start, seconds(20));
  EXPECT_TRUE(waitFor([&] { return stuck.release(); }));
}

TEST(LinuxSounds, ASoundSystemThatHangsDoesNotKeepTheProgramFromEnding) {
  const StuckConfiguration stuck;
  const EnvironmentVariable driver("CANBERRA_DRIVER", "alsa");
  const EnvironmentVariable configuration("ALSA_CONFIG_PATH", stuck.path());
  const auto start = steady_clock::now();
  {
    LinuxSounds sounds(TAVREL_RESOURCES);
    EXPECT_TRUE(sounds.play("copy"));
  }
  EXPECT_LT(steady_clock::now() - start, seconds(20));
}

} // namespace
} // namespace tavrel
