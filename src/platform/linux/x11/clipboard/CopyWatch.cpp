#include "platform/linux/x11/clipboard/CopyWatch.h"

#include <algorithm>

namespace tavrel {

namespace {
using namespace std::chrono_literals;

constexpr auto silentTimeout = 500ms;
constexpr auto responseTimeout = 2s;
constexpr auto blindTimeout = 100ms;   // for windows that answer no pings
constexpr auto clearedTimeout = 300ms; // from a cleared clipboard to the copy
constexpr auto lookInterval = 1s;
constexpr int roundCount = 3;

SelectionTime after(std::chrono::milliseconds time) {
  return std::chrono::steady_clock::now() + time;
}
} // namespace

void CopyWatch::begin(xcb_window_t window) {
  keepOwed();
  source_.emplace(connection_, window);
  isCapturing_ = true;
  isCopied_ = false;
  isCleared_ = false;
}

void CopyWatch::forgetSource() {
  keepOwed();
  source_.reset();
}

void CopyWatch::keepOwed() {
  if (source_ && pings_.isAwaited(source_->window()))
    owed_.push_back(*source_);
}

bool CopyWatch::isOwed(xcb_window_t owner) const {
  const auto owes = [&](const CopySource& source) {
    return pings_.isAwaited(source.window()) && source.madeItself(owner);
  };
  return (source_ && owes(*source_)) || std::ranges::any_of(owed_, owes);
}

void CopyWatch::forgetEnded() {
  std::erase_if(owed_, [&](const CopySource& each) { return !pings_.isAwaited(each.window()); });
  if (!pings_.isAwaited() || std::chrono::steady_clock::now() < lookedAt_ + lookInterval)
    return;
  lookedAt_ = std::chrono::steady_clock::now();
  std::vector<CopySource> all = owed_;
  if (source_)
    all.push_back(*source_);
  for (const CopySource& each : all)
    if (pings_.isAwaited(each.window()) && !each.isThere())
      pings_.forget(each.window());
}

void CopyWatch::ownerChanged(xcb_window_t owner) {
  if (owner == XCB_WINDOW_NONE)
    isCleared_ = true;
  else if (source_ && source_->made(owner))
    isCopied_ = true;
}

bool CopyWatch::isResponding(xcb_window_t window) {
  if (pings_.isAwaited(window))
    return false; // it has not handled a key yet
  if (!pings_.isAnswering(window))
    return true;
  pings_.send(window);
  connection_.wait([](const xcb_generic_event_t&) { return false; },
                   [&] { return !pings_.isAwaited(window); }, after(responseTimeout));
  const bool isAnswered = !pings_.isAwaited(window);
  pings_.forget(window); // no key is owed
  return isAnswered;
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
  const SelectionTime end = after(silentTimeout);
  SelectionTime answered;
  lag_ = {};
  for (int round = 0; round < roundCount; ++round) {
    pings_.send(source_->window());
    if (sleepUntil(end, true) || pings_.isAwaited(source_->window()))
      return isCopied_;
    if (round == 0)
      answered = std::chrono::steady_clock::now();
  }
  if (sleepUntil(answered + settle, false))
    lag_ =
        std::chrono::ceil<std::chrono::milliseconds>(std::chrono::steady_clock::now() - answered);
  return true;
}

// Whether the program has copied.
bool CopyWatch::sleepUntil(SelectionTime deadline, bool endsWithAnswer) {
  const auto isAnswered = [&] { return endsWithAnswer && !pings_.isAwaited(source_->window()); };
  connection_.wait([](const xcb_generic_event_t&) { return false; },
                   [&] { return isCopied_ || isAnswered(); }, deadline);
  return isCopied_;
}

} // namespace tavrel
