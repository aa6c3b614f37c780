#include "platform/linux/x11/clipboard/SystemClipboard.h"

#include "platform/Pasteboards.h"
#include "platform/linux/x11/clipboard/ClipboardFlavors.h"
#include "platform/linux/x11/clipboard/ClipboardLog.h"
#include "platform/linux/x11/clipboard/ClipboardManager.h"
#include "platform/linux/x11/clipboard/NativeTarget.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <algorithm>
#include <utility>
#include <xcb/xfixes.h>

namespace tavrel {

namespace {

constexpr auto readingIsKept = std::chrono::seconds(5);
constexpr auto busyLook = std::chrono::milliseconds(50);
constexpr auto idleLook = std::chrono::hours(1);
constexpr int mostAttempts = 3;

xcb_window_t presentOwner(SelectionConnection& connection) {
  xcb_connection_t* server = connection.server();
  const auto reply = xcbReply(xcb_get_selection_owner_reply(
      server, xcb_get_selection_owner(server, connection.atom("CLIPBOARD")), nullptr));
  return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

bool givesAnything(const ClipboardContents& contents) {
  const std::vector<std::string> targets = servedTargets(contents);
  return std::any_of(targets.begin(), targets.end(), [&](const std::string& target) {
    return servedTarget(contents, target).has_value();
  });
}

} // namespace

SystemClipboard::SystemClipboard(SelectionConnection& connection, xcb_window_t ownWindows,
                                 std::atomic<std::int64_t>& changeCount)
    : connection_(connection), changeCount_(changeCount), server_(connection),
      lateCopies_(connection, ownWindows),
      reader_(connection, [this] { return ownerChanges_ != readingSince_; }) {
  connection_.setHandler([this](const xcb_generic_event_t& event) { handle(event); });
  owner_ = presentOwner(connection_);
}

void SystemClipboard::handle(const xcb_generic_event_t& event) {
  if (kindOf(event) == connection_.ownerNotice())
    return ownerChanged(reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event).owner);
  if (kindOf(event) == XCB_PROPERTY_NOTIFY)
    reader_.discard(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  lateCopies_.handle(event);
  server_.handle(event);
}

void SystemClipboard::ownerChanged(xcb_window_t owner) {
  if (settingOwner_) {
    // Ours is the last word, so what others did before it only counts.
    if (owner == *settingOwner_)
      settingOwner_.reset();
    else
      ++changeCount_;
    return;
  }
  ++changeCount_;
  ++ownerChanges_;
  owner_ = owner;
  read_.reset();
  served_.reset();
  server_.serve(nullptr, 0);
  if (owner == XCB_WINDOW_NONE)
    return;
  held_.reset();
  isReturnDue_ = watched_ && lateCopies_.isLate(owner);
  if (!isReturnDue_)
    forget();
}

void SystemClipboard::look() {
  server_.look();
  lateCopies_.look();
  if (std::exchange(isReturnDue_, false) && watched_)
    returnWatched();
  if (!lateCopies_.isExpecting())
    watched_.reset();
  if (read_ && !held_ && !watched_ && std::chrono::steady_clock::now() >= readAt_ + readingIsKept)
    read_.reset();
}

SelectionTime SystemClipboard::nextLook() const {
  const bool isBusy = !server_.isIdle() || watched_ || isReturnDue_;
  const auto now = std::chrono::steady_clock::now();
  if (isBusy)
    return now + busyLook;
  return read_ && !held_ ? readAt_ + readingIsKept : now + idleLook;
}

void SystemClipboard::read() {
  for (int attempt = 0; attempt < mostAttempts && owner_ != XCB_WINDOW_NONE; ++attempt) {
    readingSince_ = ownerChanges_;
    ClipboardReading reading = readClipboard(connection_, reader_);
    readAt_ = std::chrono::steady_clock::now();
    // What an owner handed over before it ended is all there is.
    if (reading.isInterrupted && owner_ != XCB_WINDOW_NONE)
      continue;
    read_ = std::move(reading);
    return;
  }
}

std::vector<std::string> SystemClipboard::types() {
  if (held_)
    return held_->names;
  if (isOurs())
    return served_->names;
  read_.reset();
  read();
  return read_ ? read_->contents.names : std::vector<std::string>();
}

std::optional<Bytes> SystemClipboard::data(const std::string& name) {
  if (!held_ && !isOurs() && !read_)
    read();
  const ClipboardContents* contents = held_ ? &*held_ : read_ ? &read_->contents : ownersContents();
  if (!contents || !contents->offers(name))
    return std::nullopt;
  if (const SharedBytes bytes = contents->dataOf(name))
    return *bytes;
  return flavorData(*contents, name);
}

const ClipboardContents* SystemClipboard::ownersContents() const {
  static const ClipboardContents nothing;
  if (isOurs())
    return served_.get();
  if (owner_ == XCB_WINDOW_NONE)
    return &nothing;
  return read_ ? &read_->contents : nullptr;
}

void SystemClipboard::declare(const std::vector<std::string>& names) {
  ++changeCount_;
  forget();
  held_ = ClipboardContents{names, {}};
  const ClipboardContents* offered = ownersContents();
  if (offered && offered->names == names) {
    if (isAllGiven())
      giveBack();
  } else if (areAllUnread(names)) {
    disown();
  } else if (hasNativeTargets(names)) {
    take(); // there may be no data to come
  }
}

bool SystemClipboard::setData(Bytes bytes, const std::string& name, Emptiness emptiness) {
  ClipboardContents* contents = held_ ? &*held_ : served_.get();
  if (!contents)
    return read_ && read_->contents.offers(name);
  if (!contents->offers(name))
    return false;
  contents->data.insert_or_assign(name, sharedBytes(std::move(bytes)));
  if (!held_) {
    server_.contentsGrew();
  } else if (agreesWithOwner(name)) {
    if (isAllGiven())
      giveBack();
  } else if (emptiness == Emptiness::isContents || !isCleared(*held_)) {
    take();
  }
  return true;
}

bool SystemClipboard::agreesWithOwner(const std::string& name) const {
  const ClipboardContents* offered = ownersContents();
  return offered && offered->names == held_->names && agrees(*offered, name, *held_->dataOf(name));
}

bool SystemClipboard::isAllGiven() const {
  const auto& offered = ownersContents()->data;
  return std::all_of(offered.begin(), offered.end(),
                     [&](const auto& each) { return held_->dataOf(each.first) != nullptr; });
}

void SystemClipboard::giveBack() {
  held_.reset();
  watched_ = isOurs() ? served_ : std::make_shared<ClipboardContents>(*ownersContents());
  lateCopies_.expect();
}

void SystemClipboard::take() {
  const auto contents = std::make_shared<ClipboardContents>(*std::exchange(held_, std::nullopt));
  own(contents);
  if (!hasNativeTargets(contents->names))
    return;
  watched_ = contents;
  lateCopies_.expect();
}

// What others did until now is known only once the server has told its time: by then the person may
// have copied. Where another program is quicker still, it counts like one that comes after.
void SystemClipboard::returnWatched() {
  ++changeCount_;
  const auto contents = watched_;
  const bool isWorthIt = givesAnything(*contents);
  const xcb_timestamp_t time = connection_.now();
  if (watched_ != contents)
    return;
  isReturnDue_ = false;
  if (!claim(isWorthIt ? contents : nullptr, time))
    ownerChanged(owner_);
}

void SystemClipboard::own(const std::shared_ptr<ClipboardContents>& contents) {
  for (int attempt = 0; attempt < mostAttempts; ++attempt)
    if (claim(contents, connection_.now()))
      return;
  served_.reset();
  server_.serve(nullptr, 0);
}

void SystemClipboard::disown() {
  held_.reset();
  (void)claim(nullptr, connection_.now());
}

// Null: nobody is to own the clipboard. With a time of the server's it is refused only when another
// program is quicker.
bool SystemClipboard::claim(std::shared_ptr<ClipboardContents> contents, xcb_timestamp_t time) {
  const xcb_window_t owner = contents ? connection_.window() : xcb_window_t{XCB_WINDOW_NONE};
  read_.reset();
  served_ = std::move(contents);
  server_.serve(served_, time);
  return setOwner(owner, time);
}

// Whether the server agreed. Notices of what other programs did later have been handled, too.
bool SystemClipboard::setOwner(xcb_window_t owner, xcb_timestamp_t time) {
  ++ownerChanges_;
  owner_ = owner;
  settingOwner_ = owner;
  xcb_set_selection_owner(connection_.server(), owner, connection_.atom("CLIPBOARD"), time);
  const xcb_window_t present = presentOwner(connection_);
  connection_.drain();
  if (!std::exchange(settingOwner_, std::nullopt))
    return true;
  owner_ = present;
  return connection_.isBroken();
}

void SystemClipboard::forget() {
  lateCopies_.stop();
  watched_.reset();
  isReturnDue_ = false;
}

void SystemClipboard::handOver() {
  if (!isOurs() || served_->offers(pasteboardType::concealed) || !givesAnything(*served_))
    return;
  const bool isKept = saveToClipboardManager(connection_, servedTargets(*served_), [this] {
    look();
    return !server_.isIdle();
  });
  if (!isKept && isOurs())
    qCInfo(clipboardLog, "no clipboard manager keeps the clipboard; it ends with this program");
}

} // namespace tavrel
