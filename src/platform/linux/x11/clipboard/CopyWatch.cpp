#include "platform/linux/x11/clipboard/CopyWatch.h"

namespace tavrel {

namespace {
using namespace std::chrono_literals;

constexpr auto silentTimeout = 500ms;
constexpr auto blindTimeout = 100ms;   // for windows that answer no pings
constexpr auto clearedTimeout = 300ms; // from a cleared clipboard to the copy
constexpr int roundCount = 3;

SelectionTime after(std::chrono::milliseconds time) {
  return std::chrono::steady_clock::now() + time;
}
} // namespace

void CopyWatch::begin(xcb_window_t window) {
  pings_.stop();
  source_.emplace(connection_, window);
  isCapturing_ = true;
  isCopied_ = false;
  isCleared_ = false;
}

bool CopyWatch::owesAnswer(xcb_window_t window) const {
  return pings_.isAwaited() && pings_.window() == window;
}

bool CopyWatch::isResponding(xcb_window_t window) {
  if (!pings_.isAnswering(window))
    return true;
  pings_.send(window);
  const auto isAnswered = [this] { return !pings_.isAwaited(); };
  connection_.wait([](const xcb_generic_event_t&) { return false; }, isAnswered,
                   after(silentTimeout));
  return isAnswered();
}

void CopyWatch::stopWhenAnswered() {
  if (!isCapturing_ && !pings_.isAwaited())
    pings_.stop();
}

void CopyWatch::ownerChanged(xcb_window_t owner) {
  if (owner == XCB_WINDOW_NONE)
    isCleared_ = true;
  else if (source_ && source_->made(owner))
    isCopied_ = true;
}

CopyAnswer CopyWatch::wait(std::chrono::milliseconds settle) {
  if (!source_)
    return CopyAnswer::nothing;
  if (!pings_.isAnswering(source_->window()))
    return waitBlindly();
  const bool isHandled = waitForRounds(settle);
  if (!isCopied_ && isCleared_)
    (void)sleepUntil(after(clearedTimeout), false);
  if (isCopied_)
    return CopyAnswer::copied;
  return isHandled ? CopyAnswer::nothing : CopyAnswer::silent;
}

CopyAnswer CopyWatch::waitBlindly() {
  if (!sleepUntil(after(blindTimeout), false) && isCleared_)
    (void)sleepUntil(after(clearedTimeout), false);
  return isCopied_ ? CopyAnswer::copied : CopyAnswer::nothing;
}

// Whether the program has answered all pings; a copy ends the wait as well.
bool CopyWatch::waitForRounds(std::chrono::milliseconds settle) {
  SelectionTime settled;
  for (int round = 0; round < roundCount; ++round) {
    pings_.send(source_->window());
    if (sleepUntil(after(silentTimeout), true) || pings_.isAwaited())
      return isCopied_;
    if (round == 0)
      settled = after(settle);
  }
  (void)sleepUntil(settled, false);
  return true;
}

// Whether the program has copied.
bool CopyWatch::sleepUntil(SelectionTime deadline, bool endsWithAnswer) {
  connection_.wait([](const xcb_generic_event_t&) { return false; },
                   [&] { return isCopied_ || (endsWithAnswer && !pings_.isAwaited()); }, deadline);
  return isCopied_;
}

} // namespace tavrel
