#include "contract/ClockContract.h"

#import "contract/macos/MacTurns.h"
#include "platform/macos/MacClock.h"

namespace tavrel {
namespace {

struct MacClockWorld {
  Clock& clock() { return adapter; }
  void pass(double seconds) { letEventsHappen(seconds); }

  MacClock adapter;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, ClockContract, MacClockWorld);

TEST(MacClock, TimersEndWithTheirClock) {
  bool fired = false;
  {
    MacClock clock;
    (void)clock.schedule(0, [&] { fired = true; });
  }
  letEventsHappen(0.05);
  EXPECT_FALSE(fired);
}

} // namespace
} // namespace tavrel
