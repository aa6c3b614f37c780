#include "platform/linux/sounds/EventVolume.h"
#include "support/Desktop.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"
#include "support/WaitFor.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tavrel {
namespace {

constexpr std::int32_t fullVolume = 65536;

/// A sound server without sound.
class SoundServer {
public:
  [[nodiscard]] std::string address() const { return "unix:" + folder_.path("native"); }

private:
  TemporaryFolder folder_;
  EnvironmentVariable state_{"PULSE_STATE_PATH", folder_.path()};
  Program server_{QStringLiteral("pulseaudio"),
                  {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                   QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                   QStringLiteral("-L"), QStringLiteral("module-null-sink"), QStringLiteral("-L"),
                   QStringLiteral("module-stream-restore"), QStringLiteral("-L"),
                   // Last: once its socket is there, all the rest is.
                   QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") +
                       QString::fromStdString(folder_.path("native"))}};
};

class EventVolumeTest : public ::testing::Test {
protected:
  EventVolumeTest() {
    EXPECT_TRUE(waitFor([this] { return ::access(address.c_str() + 5, F_OK) == 0; }));
  }
  static bool becomes(const EventVolume& volume, std::int32_t value) {
    return waitFor([&] { return volume.get() == value; });
  }

  SoundServer server;
  std::string address = server.address();
  EnvironmentVariable where{"PULSE_SERVER", address};
};

TEST_F(EventVolumeTest, AVolumeThatWasNeverSetIsFull) {
  const EventVolume volume;
  EXPECT_TRUE(becomes(volume, fullVolume));
  EXPECT_FALSE(volume.isSilent());
}

TEST_F(EventVolumeTest, MutingReachesOtherClientsAndIsUndone) {
  EventVolume volume;
  EventVolume other;
  ASSERT_TRUE(becomes(volume, fullVolume) && becomes(other, fullVolume));
  volume.set(30000);
  EXPECT_EQ(volume.get(), 30000);
  EXPECT_TRUE(becomes(other, 30000));
  volume.set(0);
  EXPECT_TRUE(volume.isSilent());
  EXPECT_EQ(volume.get(), 0);
  EXPECT_TRUE(becomes(other, 0));
  volume.set(30000);
  EXPECT_TRUE(becomes(other, 30000));
  EXPECT_FALSE(other.isSilent());
}

TEST(EventVolume, WithoutAServerThereIsNoVolumeAndNothingBlocks) {
  const TemporaryFolder folder;
  const EnvironmentVariable nowhere("PULSE_SERVER", "unix:" + folder.path("none"));
  const auto start = std::chrono::steady_clock::now();
  EventVolume volume;
  volume.set(fullVolume);
  EXPECT_EQ(volume.get(), 0);
  EXPECT_FALSE(volume.isSilent());
  volume.set(0);
  EXPECT_FALSE(volume.isSilent()) << "the beep must be heard";
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST(EventVolume, AServerThatStartsLaterIsFoundByTheNextUse) {
  const TemporaryFolder folder;
  const EnvironmentVariable state("PULSE_STATE_PATH", folder.path());
  const std::string socket = folder.path("late");
  const EnvironmentVariable where("PULSE_SERVER", "unix:" + socket);
  const EventVolume volume;
  EXPECT_EQ(volume.get(), 0);
  const Program server(QStringLiteral("pulseaudio"),
                       {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                        QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                        QStringLiteral("-L"), QStringLiteral("module-null-sink"),
                        QStringLiteral("-L"), QStringLiteral("module-stream-restore"),
                        QStringLiteral("-L"),
                        QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") +
                            QString::fromStdString(socket)});
  EXPECT_TRUE(waitFor([&] { return volume.get() == fullVolume; }));
}

// Silencing is forgotten without a server, and what is to end it may come when there is one.
TEST_F(EventVolumeTest, UndoingAMuteThatWasIgnoredMutesNothing) {
  EventVolume volume;
  volume.set(0); // the server has not sent its volume yet
  ASSERT_TRUE(becomes(volume, fullVolume));
  volume.set(0);
  EXPECT_EQ(volume.get(), fullVolume);
  volume.set(0);
  EXPECT_TRUE(volume.isSilent());
}

TEST(EventVolume, AServerThatNeverAnswersBlocksNothing) {
  const TemporaryFolder folder;
  const int silent = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  folder.path("mute").copy(name.sun_path, sizeof name.sun_path - 1);
  ASSERT_EQ(::bind(silent, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
  ASSERT_EQ(::listen(silent, 4), 0);
  const EnvironmentVariable mute("PULSE_SERVER", "unix:" + folder.path("mute"));
  const auto start = std::chrono::steady_clock::now();
  {
    EventVolume volume;
    volume.set(0);
    EXPECT_EQ(volume.get(), 0);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  ::close(silent);
}

} // namespace
} // namespace tavrel
