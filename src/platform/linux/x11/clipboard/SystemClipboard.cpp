#include "platform/linux/x11/clipboard/SystemClipboard.h"

#include "platform/Pasteboards.h"
#include "platform/linux/x11/clipboard/ClipboardFlavors.h"
#include "platform/linux/x11/clipboard/ClipboardManager.h"
#include "platform/linux/x11/clipboard/SelectionTarget.h"

#include <algorithm>
#include <utility>
#include <xcb/xfixes.h>

namespace tavrel {

namespace {

constexpr auto readingLifetime = std::chrono::seconds(5);
constexpr auto busyInterval = std::chrono::milliseconds(50);
constexpr auto owedInterval = std::chrono::seconds(1);
constexpr auto idleInterval = std::chrono::hours(1);
constexpr auto readTimeout = std::chrono::seconds(2);
constexpr auto pasteTimeout = std::chrono::milliseconds(500);
constexpr auto blindPasteTimeout = std::chrono::seconds(2); // of windows that answer no pings
constexpr auto ownerTimeout = std::chrono::milliseconds(300);
constexpr int attemptLimit = 3;

bool hasDataToServe(const ClipboardContents& contents) {
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
      reader_(connection, "CLIPBOARD", [this] { return ownerChanges_ != changesWhenRead_; }),
      primary_(connection), watch_(connection) {
  connection_.setHandler([this](const xcb_generic_event_t& event) { handle(event); });
  owner_ = connection_.ownerOf("CLIPBOARD");
}

void SystemClipboard::handle(const xcb_generic_event_t& event) {
  if (kindOf(event) == connection_.ownerEvent())
    return ownerChanged(reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event).owner);
  if (kindOf(event) == XCB_PROPERTY_NOTIFY) {
    const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    reader_.discardLate(notice);
    primary_.discardLate(notice);
  }
  const bool owed = watch_.owesAnswer();
  lateCopies_.handle(event);
  watch_.handle(event);
  // A browser's other process copies after the answer. The user's own copy may come then, too, if
  // the user has pressed something meanwhile.
  if (owed && !watch_.owesAnswer() && !watch_.isCapturing() && lateCopies_.isExpecting())
    lateCopies_.prolong();
  server_.handle(event);
}

void SystemClipboard::ownerChanged(xcb_window_t owner) {
  if (expectedOwner_) {
    // Our ownership comes last, so the changes of others before it are counted only.
    if (owner == *expectedOwner_)
      expectedOwner_.reset();
    else
      ++changeCount_;
    return;
  }
  const bool isCopyToCome = owner == XCB_WINDOW_NONE && watch_.isCapturing();
  if (!isCopyToCome)
    ++changeCount_;
  ++ownerChanges_;
  const xcb_window_t ownerBefore = std::exchange(owner_, owner);
  ownerReading_.reset();
  served_.reset();
  server_.serve(nullptr, 0);
  watch_.ownerChanged(owner);
  isRestoreDue_ = protected_ && isLate(owner, ownerBefore);
  if (owner == XCB_WINDOW_NONE)
    return;
  ownView_.reset();
  if (isRestoreDue_)
    return;
  stopProtecting();
  isNewCopyAtRisk_ = watch_.owesAnswer();
}

// What a program owes since before the user pressed anything is late, however late it comes.
bool SystemClipboard::isLate(xcb_window_t owner, xcb_window_t ownerBefore) {
  if (owner == XCB_WINDOW_NONE)
    return lateCopies_.isLateClear(ownerBefore);
  return lateCopies_.isLate(owner) || watch_.isOwed(owner);
}

void SystemClipboard::doDueWork() {
  server_.doDueWork();
  watch_.forgetEnded();
  if (!watch_.owesAnswer())
    lateCopies_.stopAfterTimeout();
  if (std::exchange(isRestoreDue_, false) && protected_)
    restoreProtected();
  if (std::exchange(isNewCopyAtRisk_, false) && watch_.owesAnswer())
    protectNewCopy();
  if (!lateCopies_.isExpecting() && !watch_.owesAnswer())
    protected_.reset();
  if (ownerReading_ && !ownView_ && !protected_ &&
      std::chrono::steady_clock::now() >= ownerReadAt_ + readingLifetime)
    ownerReading_.reset();
}

// A program may hang for hours: what is to be done when it answers or ends has time.
SelectionTime SystemClipboard::nextDueTime() const {
  const auto now = std::chrono::steady_clock::now();
  if (!server_.isIdle() || isRestoreDue_)
    return now + busyInterval;
  if (watch_.owesAnswer())
    return now + owedInterval;
  if (protected_)
    return now + busyInterval;
  return ownerReading_ && !ownView_ ? ownerReadAt_ + readingLifetime : now + idleInterval;
}

void SystemClipboard::read() {
  const SelectionTime end = std::chrono::steady_clock::now() + readTimeout;
  while (std::chrono::steady_clock::now() < end && hasOwnerSoon()) {
    changesWhenRead_ = ownerChanges_;
    ClipboardReading reading = readClipboard(connection_, reader_);
    ownerReadAt_ = std::chrono::steady_clock::now();
    // What an owner sent before it ended is all there is to read.
    if (reading.isInterrupted && owner_ != XCB_WINDOW_NONE)
      continue;
    ownerReading_ = std::move(reading);
    return;
  }
}

// Programs clear the clipboard a moment before they copy: LibreOffice 7.4 up to 20 ms.
bool SystemClipboard::hasOwnerSoon() {
  if (owner_ == XCB_WINDOW_NONE && watch_.isCapturing())
    connection_.wait([](const xcb_generic_event_t&) { return false; },
                     [this] { return owner_ != XCB_WINDOW_NONE; },
                     std::chrono::steady_clock::now() + ownerTimeout);
  return owner_ != XCB_WINDOW_NONE;
}

void SystemClipboard::awaitPaste(xcb_window_t window, std::chrono::milliseconds settle) {
  server_.forgetReader();
  watch_.begin(window);
  const CopyAnswer answer = watch_.wait(settle);
  const auto isRead = [&] {
    return server_.isIdle() && server_.lastReader() != XCB_WINDOW_NONE &&
           watch_.source()->made(server_.lastReader());
  };
  const SelectionTime end = std::chrono::steady_clock::now() +
                            (watch_.isAnswering(window) ? pasteTimeout : blindPasteTimeout);
  while (answer != CopyAnswer::silent && !isRead() && std::chrono::steady_clock::now() < end) {
    connection_.wait([](const xcb_generic_event_t&) { return false; }, isRead,
                     std::chrono::steady_clock::now() + busyInterval);
    server_.doDueWork(); // requests that came before the data
  }
  watch_.end();
}

CopyAnswer SystemClipboard::showPrimaryOf(xcb_window_t window) {
  watch_.forgetSource();
  if (!primary_.isOf(window))
    return CopyAnswer::nothing;
  ClipboardReading reading = primary_.read();
  if (reading.contents.data.empty())
    return reading.isComplete ? CopyAnswer::nothing : CopyAnswer::silent;
  ownView_ = std::move(reading.contents);
  ++changeCount_;
  return CopyAnswer::copied;
}

std::vector<std::string> SystemClipboard::types() {
  if (ownView_)
    return ownView_->names;
  if (isOurs())
    return served_->names;
  ownerReading_.reset();
  read();
  return ownerReading_ ? ownerReading_->contents.names : std::vector<std::string>();
}

std::optional<Bytes> SystemClipboard::data(const std::string& name) {
  if (!ownView_ && !isOurs() && !ownerReading_)
    read();
  const ClipboardContents* contents = ownView_        ? &*ownView_
                                      : ownerReading_ ? &ownerReading_->contents
                                                      : ownersContents();
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
  return ownerReading_ ? &ownerReading_->contents : nullptr;
}

void SystemClipboard::declare(const std::vector<std::string>& names) {
  ++changeCount_;
  ++declarations_;
  watch_.end();
  stopProtecting();
  ownView_ = ClipboardContents{names, {}};
  const ClipboardContents* offered = ownersContents();
  if (offered && offered->names == names) {
    if (hasAllData())
      leaveToOwner();
  } else if (hasNothingToServe(names)) {
    giveUpOwnership();
  } else if (hasSelectionTargets(names)) {
    takeFromOwner(); // there may be no data to come
  }
}

bool SystemClipboard::setData(Bytes bytes, const std::string& name, Emptiness emptiness) {
  ClipboardContents* contents = contentsToSet();
  if (!contents)
    return ownerReading_ && ownerReading_->contents.offers(name);
  if (!contents->offers(name))
    return false;
  contents->data.insert_or_assign(name, sharedBytes(std::move(bytes)));
  if (!ownView_) {
    server_.dataWasSet();
  } else if (ownerOffersSame(name)) {
    if (hasAllData())
      leaveToOwner();
  } else if (emptiness == Emptiness::isContents || !isCleared(*ownView_)) {
    takeFromOwner();
  }
  return true;
}

// Where another program has just taken the ownership, the rest of the data is for its return.
ClipboardContents* SystemClipboard::contentsToSet() {
  if (ownView_)
    return &*ownView_;
  return isRestoreDue_ && !served_ ? protected_.get() : served_.get();
}

bool SystemClipboard::ownerOffersSame(const std::string& name) const {
  const ClipboardContents* offered = ownersContents();
  return offered && offered->names == ownView_->names &&
         leavesAsRead(*offered, name, *ownView_->dataOf(name));
}

bool SystemClipboard::hasAllData() const {
  const auto& offered = ownersContents()->data;
  return std::all_of(offered.begin(), offered.end(),
                     [&](const auto& each) { return ownView_->dataOf(each.first) != nullptr; });
}

void SystemClipboard::leaveToOwner() {
  ownView_.reset();
  protect(isOurs() ? served_ : std::make_shared<ClipboardContents>(*ownersContents()));
}

// A late copy may come while the ownership is being taken.
void SystemClipboard::takeFromOwner() {
  const auto contents = std::make_shared<ClipboardContents>(*std::exchange(ownView_, std::nullopt));
  if (hasSelectionTargets(contents->names))
    protect(contents);
  becomeOwner(contents);
}

// A program that hangs may overwrite what the user has copied since.
void SystemClipboard::protectNewCopy() {
  read();
  if (ownerReading_)
    protected_ = std::make_shared<ClipboardContents>(ownerReading_->contents);
}

void SystemClipboard::protect(std::shared_ptr<ClipboardContents> contents) {
  if (!watch_.source() && !watch_.owesAnswer())
    return;
  protected_ = std::move(contents);
  if (watch_.source())
    lateCopies_.expect(*watch_.source());
}

// The round trip for the time stamp brings all events up to now: if the user has pressed a key or
// copied meanwhile, nothing is protected any more. A program that copies during the claim counts
// like one that copies after it.
void SystemClipboard::restoreProtected() {
  ++changeCount_;
  const auto contents = protected_;
  // The contents may just be put together: their data comes type by type.
  const bool isWorthIt = hasDataToServe(*contents) || !hasNothingToServe(contents->names);
  const xcb_timestamp_t time = connection_.now();
  if (protected_ != contents)
    return;
  isRestoreDue_ = false;
  if (!claim(isWorthIt ? contents : nullptr, time))
    ownerChanged(owner_);
}

void SystemClipboard::becomeOwner(const std::shared_ptr<ClipboardContents>& contents) {
  for (int attempt = 0; attempt < attemptLimit; ++attempt)
    if (claim(contents, connection_.now()))
      return;
  served_.reset();
  server_.serve(nullptr, 0);
  isRestoreDue_ = protected_ == contents; // another program copies again and again: once more later
}

void SystemClipboard::giveUpOwnership() {
  ownView_.reset();
  (void)claim(nullptr, connection_.now());
}

// Null: the clipboard is to have no owner. With a fresh time stamp the server refuses only when
// another program has been quicker.
bool SystemClipboard::claim(std::shared_ptr<ClipboardContents> contents, xcb_timestamp_t time) {
  const xcb_window_t owner = contents ? connection_.window() : xcb_window_t{XCB_WINDOW_NONE};
  ownerReading_.reset();
  served_ = std::move(contents);
  server_.serve(served_, time);
  return setOwner(owner, time);
}

// Whether the server agreed. Events of what other programs did later have been handled when this
// returns.
bool SystemClipboard::setOwner(xcb_window_t owner, xcb_timestamp_t time) {
  ++ownerChanges_;
  owner_ = owner;
  expectedOwner_ = owner;
  xcb_set_selection_owner(connection_.server(), owner, connection_.atom("CLIPBOARD"), time);
  const xcb_window_t present = connection_.ownerOf("CLIPBOARD");
  connection_.drain();
  if (!std::exchange(expectedOwner_, std::nullopt))
    return true;
  owner_ = present;
  return connection_.isBroken();
}

void SystemClipboard::stopProtecting() {
  lateCopies_.stop();
  protected_.reset();
  isRestoreDue_ = false;
}

void SystemClipboard::saveToManager() {
  if (!isOurs() || served_->offers(pasteboardType::concealed) || !hasDataToServe(*served_))
    return;
  const bool isKept = saveToClipboardManager(connection_, servedTargets(*served_), [this] {
    doDueWork();
    return !server_.isIdle();
  });
  if (!isKept && isOurs())
    qCInfo(clipboardLog, "no clipboard manager keeps the clipboard; it ends with this program");
}

} // namespace tavrel
