#pragma once

#include "platform/linux/x11/clipboard/ClipboardReading.h"
#include "platform/linux/x11/clipboard/LateCopies.h"
#include "platform/linux/x11/clipboard/SelectionServer.h"

#include <atomic>
#include <optional>

namespace tavrel {

/// The X11 CLIPBOARD as a pasteboard, for one thread.
///
/// Declaring takes the clipboard from its owner only when other programs would read something else
/// afterwards. Two declarations are held for our own readers, while the owner keeps the clipboard:
///  - the empty string that a pasteboard is cleared to (Emptiness::clears);
///  - names and data as they were read from the owner. They give the clipboard back to it.
/// So saving, clearing and restoring change nothing as long as no program copies meanwhile, also
/// when the owner could not be read: what it did not hand over, it still has. When a program has
/// copied meanwhile, what could be read comes back.
///
/// Contents put back are watched over for a while: a program that copies late (see LateCopies)
/// loses the clipboard to them again.
class SystemClipboard {
public:
  /// What an empty string means when it is all there is.
  enum class Emptiness { clears, isContents };

  /// `ownWindows`: see LateCopies. Every change of owner or contents raises `changeCount`.
  SystemClipboard(SelectionConnection& connection, xcb_window_t ownWindows,
                  std::atomic<std::int64_t>& changeCount);

  [[nodiscard]] std::vector<std::string> types();
  void declare(const std::vector<std::string>& names);
  [[nodiscard]] bool setData(Bytes bytes, const std::string& name, Emptiness emptiness);
  [[nodiscard]] std::optional<Bytes> data(const std::string& name);

  /// Lets the clipboard manager, if there is one, take over what we serve; not what is concealed.
  /// Waits for it three seconds, and longer while it is reading.
  void handOver();

  /// Does what has become due: answers, returns, forgets.
  void look();
  /// When to look again, if nothing arrives before.
  [[nodiscard]] SelectionTime nextLook() const;

private:
  void handle(const xcb_generic_event_t& event);
  void ownerChanged(xcb_window_t owner);
  void read();
  [[nodiscard]] const ClipboardContents* ownersContents() const;
  [[nodiscard]] bool agreesWithOwner(const std::string& name) const;
  [[nodiscard]] bool isAllGiven() const;
  void giveBack();
  void take();
  void returnWatched();
  void own(const std::shared_ptr<ClipboardContents>& contents);
  void disown();
  [[nodiscard]] bool claim(std::shared_ptr<ClipboardContents> contents, xcb_timestamp_t time);
  [[nodiscard]] bool setOwner(xcb_window_t owner, xcb_timestamp_t time);
  void forget();
  [[nodiscard]] bool isOurs() const { return served_ != nullptr; }

  SelectionConnection& connection_;
  std::atomic<std::int64_t>& changeCount_;
  SelectionServer server_;
  LateCopies lateCopies_;
  SelectionReader reader_;

  xcb_window_t owner_ = XCB_WINDOW_NONE;
  std::uint64_t ownerChanges_ = 0;
  std::uint64_t readingSince_ = 0;
  std::optional<xcb_window_t> settingOwner_; ///< whose notice has not come yet
  std::shared_ptr<ClipboardContents> served_;
  std::optional<ClipboardReading> read_; ///< what the present owner, another program, offers
  SelectionTime readAt_;
  std::optional<ClipboardContents> held_;      ///< what our own readers see instead
  std::shared_ptr<ClipboardContents> watched_; ///< what a late answer is replaced by
  bool isReturnDue_ = false;
};

} // namespace tavrel
