#include "platform/linux/x11/selection/SelectionKeys.h"

#include "base/Modifiers.h"
#include "platform/Accessibility.h"
#include "platform/linux/processes/ProcessFacts.h"
#include "platform/linux/x11/clipboard/ClipboardThread.h"
#include "platform/linux/x11/keystrokes/KeystrokePoster.h"

#include <QElapsedTimer>
#include <QLoggingCategory>

#include <algorithm>
#include <thread>
#include <unistd.h>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(selectionLog, "tavrel.selection", QtInfoMsg)

using namespace std::chrono_literals;

constexpr qint64 activationTimeout = 200; // in milliseconds
constexpr auto pasteSettle = 20ms;
// Where something is marked, or was, a copy may still come by a helper program.
constexpr auto markedSettle = 100ms;
constexpr KeyboardEvent letterC{'c', 8, KeyDirection::down};
constexpr KeyboardEvent letterV{'v', 9, KeyDirection::down};
constexpr KeyboardEvent insertKey{insertCharacter, 114, KeyDirection::down};

std::vector<KeyboardEvent> chordOf(std::initializer_list<std::uint16_t> modifiers,
                                   KeyboardEvent key) {
  std::vector<KeyboardEvent> events;
  for (const std::uint16_t modifier : modifiers)
    events.push_back({0, modifier, KeyDirection::down});
  events.push_back(key);
  for (std::size_t at = events.size(); at-- > 0;) {
    events.push_back(events[at]);
    events.back().direction = KeyDirection::up;
  }
  return events;
}

std::string numbersIn(const std::vector<std::uint32_t>& roles) {
  std::string text;
  for (const std::uint32_t role : roles)
    text += (text.empty() ? "" : " ") + std::to_string(role);
  return text;
}

const char* nameOf(CopyRoad road) {
  switch (road) {
  case CopyRoad::primary:
    return "PRIMARY";
  case CopyRoad::controlInsert:
    return "Ctrl+Insert";
  case CopyRoad::controlC:
    return "Ctrl+C";
  }
  return "";
}

std::vector<KeyboardEvent> pasteChord(PasteRoad road) {
  switch (road) {
  case PasteRoad::none:
    return {};
  case PasteRoad::shiftInsert:
    return chordOf({keyCode::shift}, insertKey);
  case PasteRoad::controlV:
    return chordOf({keyCode::command}, letterV);
  case PasteRoad::controlShiftV:
    return chordOf({keyCode::command, keyCode::shift}, letterV);
  }
  return {};
}

} // namespace

void SelectionKeys::copy(std::int32_t process) {
  if (desktop_.clipboard == nullptr)
    return;
  const auto declarations =
      desktop_.clipboard->call([](SystemClipboard& clipboard) { return clipboard.declarations(); });
  if (asked_.declarations != declarations) {
    desktop_.poster.bringToFront(process);
    asked_ = {0, 0, 0, declarations, CopyAnswer::nothing};
    ask(desktop_.windows.activeWindow());
  }
  if (asked_.answer != CopyAnswer::silent) // else the answer may still come
    desktop_.answered();
}

void SelectionKeys::ask(WindowId window) {
  const auto facts = window != 0 ? desktop_.windows.facts(window) : std::nullopt;
  if (!facts || facts->pid == ::getpid())
    return;
  asked_.window = window;
  asked_.process = facts->pid;
  asked_.started = startTimeOf(facts->pid);
  const SelectionRoad road = roadOf(*facts);
  asked_.answer = road.copy == CopyRoad::primary ? readPrimary() : press(road);
  if (asked_.answer == CopyAnswer::silent)
    warn(*facts, "did not answer; what is selected there is not known");
}

CopyAnswer SelectionKeys::readPrimary() {
  return desktop_.clipboard->call(
      [&](SystemClipboard& clipboard) { return clipboard.showPrimaryOf(asked_.window); });
}

SelectionRoad SelectionKeys::roadOf(const WindowFacts& window) {
  ProgramEvidence evidence = programEvidence(window, desktop_.registry, desktop_.exceptions());
  if (evidence.handsKeysOn)
    desktop_.poster.whileGrabIsReleased(
        [&] { evidence.focusedRoles = focusedRoles(window.pid, desktop_.accessibilityBus); });
  const SelectionRoad road = selectionRoad(evidence);
  qCDebug(selectionLog, "%s: road=%s (toolkit %d, hands keys on %d, focus %s)",
          window.windowClass.c_str(), nameOf(road.copy), static_cast<int>(evidence.toolkit),
          static_cast<int>(evidence.handsKeysOn), numbersIn(evidence.focusedRoles).c_str());
  return road;
}

// A program that has not handled the last key gets no further one.
CopyAnswer SelectionKeys::press(const SelectionRoad& road) {
  const WindowId window = asked_.window;
  const bool isBusy = desktop_.clipboard->call([&](SystemClipboard& clipboard) {
    const bool owes = clipboard.owesAnswer(window);
    if (!owes)
      clipboard.expectCopy(window);
    return owes;
  });
  if (isBusy)
    return CopyAnswer::silent;
  CopyAnswer answer = CopyAnswer::nothing;
  const auto chord =
      chordOf({keyCode::command}, road.copy == CopyRoad::controlC ? letterC : insertKey);
  const bool isTyped =
      desktop_.poster.typeTo(window, chord, [&] { answer = awaitCopy(road.settle); });
  return isTyped ? answer : readPrimary();
}

CopyAnswer SelectionKeys::awaitCopy(std::chrono::milliseconds least) {
  const std::chrono::milliseconds settle = lags_.settleTime(asked_.process, least);
  const auto [answer, lag] = desktop_.clipboard->call([&](SystemClipboard& clipboard) {
    const bool isMarked = clipboard.isPrimaryOf(asked_.window);
    const CopyAnswer found =
        clipboard.awaitCopy(isMarked ? std::max(settle, markedSettle) : settle);
    return std::pair(found, clipboard.copyLag());
  });
  if (answer == CopyAnswer::copied)
    lags_.noteCopy(asked_.process, lag);
  return answer;
}

void SelectionKeys::paste(std::int32_t process) {
  const auto facts = asked_.window != 0 ? desktop_.windows.facts(asked_.window) : std::nullopt;
  if (!facts || !isAsked(*facts) || (process != 0 && process != facts->pid))
    return;
  if (!bringBack(asked_.window))
    return warn(*facts, "does not come to the front; nothing is pasted there");
  const SelectionRoad road = roadOf(*facts);
  if (road.paste == PasteRoad::none)
    return warn(*facts, "has no key that is known to paste; nothing is pasted there");
  const auto call = [&](auto work) { return desktop_.clipboard->call(work); };
  if (!call([&](SystemClipboard& clipboard) { return clipboard.isResponding(asked_.window); }))
    return warn(*facts, "did not answer; nothing is pasted there");
  const bool isTyped = desktop_.poster.typeTo(asked_.window, pasteChord(road.paste), [&] {
    call([&](SystemClipboard& clipboard) { clipboard.awaitPaste(asked_.window, pasteSettle); });
  });
  if (!isTyped)
    warn(*facts, "has not the keyboard; nothing is pasted there");
}

// The number of a window that has been closed may be another one's by now.
bool SelectionKeys::isAsked(const WindowFacts& window) const {
  return window.pid == asked_.process && startTimeOf(window.pid) == asked_.started;
}

bool SelectionKeys::bringBack(WindowId window) {
  if (desktop_.windows.hasKeyboard(window))
    return true;
  if (!desktop_.windows.activate(window))
    return false;
  QElapsedTimer waiting;
  waiting.start();
  while (!desktop_.windows.hasKeyboard(window) && waiting.elapsed() < activationTimeout)
    std::this_thread::sleep_for(1ms);
  return desktop_.windows.hasKeyboard(window);
}

void SelectionKeys::warn(const WindowFacts& window, const char* what) const {
  qCWarning(selectionLog, "%s %s", programName(window, desktop_.registry).c_str(), what);
}

} // namespace tavrel
