// Taps Ctrl, and counts the double taps that are noticed:
//   tap_soak [COUNT]
// What is a double tap, the server's own times decide: a busy server is late, too.
#include "base/Modifiers.h"
#include "invoke/NTModifierKeyActionHandler.h"
#include "platform/EventMonitor.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/x11/gestures/RawInput.h"
#include "platform/linux/x11/keyboard/KeysDown.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"

#include <QApplication>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

namespace tavrel {
namespace {

/// Two taps: how long each is held, and from the first one's release to the second press, in
/// milliseconds.
struct Taps {
  std::uint32_t hold;
  std::uint32_t between;
};

constexpr Taps doubleTaps[]{{30, 60}, {30, 120}, {30, 180}, {70, 100}};
constexpr Taps notDoubleTaps[]{{30, 300}, {230, 10}, {210, 100}};
constexpr std::uint32_t pauseAfter = 300;

/// Taps from another thread, as a person does while the program is at work.
class Tapper {
public:
  explicit Tapper(Device device) : keys_(device) {}

  /// Whether it was a double tap by the server's times.
  bool tapTwice(const Taps& taps) {
    std::thread([&] {
      keys_.waitAndPress(serverKey::control, pauseAfter);
      keys_.holdAndRelease(serverKey::control, taps.hold);
      keys_.waitAndPress(serverKey::control, taps.between);
      keys_.holdAndRelease(serverKey::control, taps.hold);
      isDone_ = true;
    }).detach();
    while (!isDone_.exchange(false))
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    return wasDoubleTap();
  }

private:
  bool wasDoubleTap() {
    (void)keysDown(seen_->connection()); // with its answer all of them have arrived
    std::vector<std::uint32_t> times;
    while (const auto event = seen_->next())
      if (event->kind == RawInputKind::keyDown || event->kind == RawInputKind::keyUp)
        times.push_back(event->time);
    const auto lasted = [&](std::size_t from, std::size_t to, double limit) {
      return times[to] - times[from] < static_cast<std::uint32_t>(limit * 1000);
    };
    return times.size() == 4 && lasted(0, 1, longestTap) && lasted(2, 3, longestTap) &&
           lasted(0, 2, doubleTapInterval);
  }

  FakeInput keys_;
  std::unique_ptr<RawInput> seen_ = RawInput::create();
  std::atomic<bool> isDone_ = false;
};

class Soak {
public:
  Soak() {
    handler_.addClient("tapped", modifier::command);
    (void)platform().notifications.addObserver({"tapped", NTModifierKeyActionHandler::sender},
                                               [this](const Notification&) { ++noticed_; });
  }

  void run(Tapper& tapper, const Taps& taps) {
    const int before = noticed_;
    const bool isOne = tapper.tapTwice(taps);
    made_ += isOne ? 1 : 0;
    others_ += isOne ? 0 : 1;
    missed_ += isOne && !eventually([&] { return noticed_ > before; }) ? 1 : 0;
    invented_ += noticed_ - before > (isOne ? 1 : 0) ? 1 : 0;
  }

  int finish() {
    QElapsedTimer passed;
    passed.start();
    (void)eventually([&] { return passed.hasExpired(500); }); // one may be told late
    std::printf("%d taps that were double taps: %d missed; %d that were not: %d taken for some\n",
                2 * made_, missed_, 2 * others_, invented_);
    return made_ > 0 && missed_ == 0 && invented_ == 0 && noticed_ == made_ ? 0 : 1;
  }

private:
  NTModifierKeyActionHandler handler_;
  int noticed_ = 0;
  int made_ = 0, others_ = 0, missed_ = 0, invented_ = 0;
};

int run(int count) {
  LinuxDesktop desktop("none");
  const ScopedPlatform scope(desktop.ports());
  Soak soak;
  for (const Device device : {Device::keyboard, Device::program}) {
    Tapper tapper(device);
    for (int each = 0; each < count / 4; ++each) {
      soak.run(tapper, doubleTaps[static_cast<std::size_t>(each) % std::size(doubleTaps)]);
      if (each % 5 == 0)
        soak.run(tapper,
                 notDoubleTaps[static_cast<std::size_t>(each / 5) % std::size(notDoubleTaps)]);
    }
  }
  return soak.finish();
}

} // namespace
} // namespace tavrel

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  return tavrel::run(count > 1 ? std::atoi(arguments[1]) : 1000);
}
