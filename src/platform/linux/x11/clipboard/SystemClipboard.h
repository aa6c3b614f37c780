#pragma once

#include "platform/linux/x11/clipboard/ClipboardReading.h"
#include "platform/linux/x11/clipboard/CopyWatch.h"
#include "platform/linux/x11/clipboard/LateCopies.h"
#include "platform/linux/x11/clipboard/PrimarySelection.h"
#include "platform/linux/x11/clipboard/SelectionServer.h"

#include <atomic>
#include <optional>

namespace tavrel {

/// The X11 selection CLIPBOARD as a pasteboard, for one thread.
///
/// A declaration takes the ownership from another program only when other programs would read
/// something else afterwards. Two declarations change what this program reads and leave the owner
/// alone:
///  - the empty string of a cleared pasteboard (Emptiness::clears);
///  - the names and data that were read from the owner: this program reads the owner again then.
/// So a capture that saves, clears and restores the clipboard changes nothing as long as no program
/// copies meanwhile, also when the owner could not be read: what it did not send, it still has.
/// When a program has copied meanwhile, what could be read is served in its place.
///
/// Restored contents are protected for a while: when a program copies late (LateCopies), they are
/// restored once more.
class SystemClipboard {
public:
  /// Whether an empty string that is the only contents clears the pasteboard.
  enum class Emptiness { clears, isContents };

  /// `ownWindows`: see LateCopies. Every change of owner or contents raises `changeCount`.
  SystemClipboard(SelectionConnection& connection, xcb_window_t ownWindows,
                  std::atomic<std::int64_t>& changeCount);

  [[nodiscard]] std::vector<std::string> types();
  void declare(const std::vector<std::string>& names);
  [[nodiscard]] bool setData(Bytes bytes, const std::string& name, Emptiness emptiness);
  [[nodiscard]] std::optional<Bytes> data(const std::string& name);

  /// A copy keystroke is about to be posted to this window. Until the next declaration a clipboard
  /// that is left without an owner does not count as a change: the copy is still to come.
  void expectCopy(xcb_window_t window) { watch_.begin(window); }
  /// See CopyWatch.
  [[nodiscard]] CopyAnswer awaitCopy(std::chrono::milliseconds settle) {
    return watch_.wait(settle);
  }
  [[nodiscard]] std::chrono::milliseconds copyLag() const { return watch_.lag(); }
  /// Whether a copy keystroke that was posted to this window earlier has not been handled yet.
  [[nodiscard]] bool owesAnswer(xcb_window_t window) const { return watch_.owesAnswer(window); }
  /// Whether the program of this window answers a ping within two seconds.
  [[nodiscard]] bool isResponding(xcb_window_t window) { return watch_.isResponding(window); }
  /// Waits until the program has handled a paste keystroke and read the clipboard, half a second
  /// each at most, or two seconds where the window answers no pings (Java): what is restored before
  /// that would be pasted.
  void awaitPaste(xcb_window_t window, std::chrono::milliseconds settle);
  /// Whether the selection PRIMARY is of the program of this window: something is marked there, or
  /// was.
  [[nodiscard]] bool isPrimaryOf(xcb_window_t window) { return primary_.isOf(window); }
  /// Has this program read, until the next declaration, the selection PRIMARY in place of the
  /// clipboard, which is left alone. Nothing when PRIMARY is not of the program of this window.
  [[nodiscard]] CopyAnswer showPrimaryOf(xcb_window_t window);
  /// How often the contents have been declared.
  [[nodiscard]] std::int64_t declarations() const { return declarations_; }

  /// Has the clipboard manager, if there is one, save what this program serves, unless it is
  /// concealed. The timeout is three seconds, and longer while the manager is reading.
  void saveToManager();

  /// Does what has become due: answers requests, restores contents, drops what has reached its
  /// timeout.
  void doDueWork();
  /// When to call that next, if no event arrives before.
  [[nodiscard]] SelectionTime nextDueTime() const;

private:
  void handle(const xcb_generic_event_t& event);
  void ownerChanged(xcb_window_t owner);
  [[nodiscard]] bool isLate(xcb_window_t owner, xcb_window_t ownerBefore);
  void read();
  [[nodiscard]] bool hasOwnerSoon();
  [[nodiscard]] const ClipboardContents* ownersContents() const;
  [[nodiscard]] ClipboardContents* contentsToSet();
  [[nodiscard]] bool ownerOffersSame(const std::string& name) const;
  [[nodiscard]] bool hasAllData() const;
  void leaveToOwner();
  void takeFromOwner();
  void protect(std::shared_ptr<ClipboardContents> contents);
  void protectNewCopy();
  void restoreProtected();
  void becomeOwner(const std::shared_ptr<ClipboardContents>& contents);
  void giveUpOwnership();
  [[nodiscard]] bool claim(std::shared_ptr<ClipboardContents> contents, xcb_timestamp_t time);
  [[nodiscard]] bool setOwner(xcb_window_t owner, xcb_timestamp_t time);
  void stopProtecting();
  [[nodiscard]] bool isOurs() const { return served_ != nullptr; }

  SelectionConnection& connection_;
  std::atomic<std::int64_t>& changeCount_;
  SelectionServer server_;
  LateCopies lateCopies_;
  SelectionReader reader_;
  PrimarySelection primary_;
  CopyWatch watch_;
  std::int64_t declarations_ = 0;

  xcb_window_t owner_ = XCB_WINDOW_NONE;
  std::uint64_t ownerChanges_ = 0;
  std::uint64_t changesWhenRead_ = 0;
  std::optional<xcb_window_t> expectedOwner_; ///< set by us, its event has not come yet
  std::shared_ptr<ClipboardContents> served_;
  std::optional<ClipboardReading> ownerReading_; ///< of the present owner, another program
  SelectionTime ownerReadAt_;
  std::optional<ClipboardContents> ownView_;     ///< what this program reads instead
  std::shared_ptr<ClipboardContents> protected_; ///< what replaces a late copy
  bool isRestoreDue_ = false;
  bool isNewCopyAtRisk_ = false;
};

} // namespace tavrel
