#include "contract/ClockContract.h"

#include "platform/linux/system/LinuxClock.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace tavrel {
namespace {

struct LinuxWorld {
  LinuxClock adapter;
  Clock& clock() { return adapter; }
  void pass(double seconds) {
    QEventLoop loop;
    QTimer::singleShot(std::chrono::milliseconds(static_cast<int>(seconds * 1000)),
                       Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, ClockContract, LinuxWorld);

TEST(LinuxClock, TellsSecondsSinceTheFirstDayOfTheMillennium) {
  LinuxClock clock;
  const std::chrono::sys_days start{std::chrono::year{2001} / 1 / 1};
  const std::chrono::duration<double> real = std::chrono::system_clock::now() - start;
  EXPECT_NEAR(clock.now(), real.count(), 1);
}

TEST(LinuxClock, TimersEndWithTheirClock) {
  bool fired = false;
  LinuxWorld other;
  {
    LinuxClock clock;
    (void)clock.schedule(0, [&] { fired = true; });
  }
  other.pass(0.03);
  EXPECT_FALSE(fired);
}

} // namespace
} // namespace tavrel
