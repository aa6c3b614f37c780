#pragma once

#include "platform/linux/x11/clipboard/CopySource.h"
#include "platform/linux/x11/clipboard/WindowPings.h"

#include <optional>
#include <vector>

namespace tavrel {

enum class CopyAnswer {
  copied,
  nothing, ///< the program has handled the key, and copied nothing
  silent,  ///< it has not handled the key in time
};

/// Waits for what a program does with a copy keystroke. The program has handled the key when it has
/// answered several pings that were sent after it, one after the other: Qt 6.4 answers the first
/// before it handles a key that it has read already, and LibreOffice 7.4 copies two rounds of its
/// event loop later. Programs that have not handled their key are remembered until they do, however
/// many others are asked meanwhile.
class CopyWatch {
public:
  explicit CopyWatch(SelectionConnection& connection)
      : connection_(connection), pings_(connection) {}

  /// To be called before the key is posted to the window.
  void begin(xcb_window_t window);
  /// Waits until the program has copied or, with nothing to copy, has been quiet for `settle` after
  /// its first answer; half a second for a program that does not answer. Handles events meanwhile.
  [[nodiscard]] CopyAnswer wait(std::chrono::milliseconds settle);
  /// How long after its first answer the program has copied, in the last `wait`.
  [[nodiscard]] std::chrono::milliseconds lag() const { return lag_; }
  /// Whether the window's program answers a ping within two seconds; true for one that answers none
  /// at all.
  [[nodiscard]] bool isResponding(xcb_window_t window);
  /// Whether the window answers pings at all.
  [[nodiscard]] bool isAnswering(xcb_window_t window) { return pings_.isAnswering(window); }
  /// What the program copies from now on is no part of the capture any more.
  void end() { isCapturing_ = false; }
  /// No program is asked this time.
  void forgetSource();

  /// Between `begin` and `end`: the clipboard's changes belong to a capture.
  [[nodiscard]] bool isCapturing() const { return isCapturing_; }
  /// The window that was asked last; none since `forgetSource`.
  [[nodiscard]] const std::optional<CopySource>& source() const { return source_; }

  /// Whether a key that was posted to this window, or to any, has not been handled yet.
  [[nodiscard]] bool owesAnswer(xcb_window_t window) const { return pings_.isAwaited(window); }
  [[nodiscard]] bool owesAnswer() const { return pings_.isAwaited(); }
  /// Whether a clipboard that belongs to this window now is the copy of a program that owes one.
  [[nodiscard]] bool isOwed(xcb_window_t owner) const;
  /// Forgets programs that have answered or ended.
  void forgetEnded();

  void ownerChanged(xcb_window_t owner);
  void handle(const xcb_generic_event_t& event) { pings_.handle(event); }

private:
  void keepOwed();
  [[nodiscard]] bool sleepUntil(SelectionTime deadline, bool endsWithAnswer);
  [[nodiscard]] CopyAnswer waitBlindly();
  [[nodiscard]] bool waitForRounds(std::chrono::milliseconds settle);

  SelectionConnection& connection_;
  WindowPings pings_;
  std::optional<CopySource> source_;
  std::vector<CopySource> owed_; ///< of earlier captures
  SelectionTime lookedAt_;       ///< when `forgetEnded` looked last
  std::chrono::milliseconds lag_{0};
  bool isCapturing_ = false;
  bool isCopied_ = false;
  bool isCleared_ = false; ///< the clipboard has lost its owner: programs clear it before they copy
};

} // namespace tavrel
