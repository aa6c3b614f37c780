#pragma once

#include "platform/linux/x11/clipboard/IncrementalSends.h"

#include <memory>

namespace tavrel {

/// Answers the requests of programs that paste while this program owns the clipboard: TARGETS,
/// TIMESTAMP, MULTIPLE and the targets of ClipboardTargets.h. A request that comes before all data
/// has been set is answered when it has, or after a timeout of 200 ms.
class SelectionServer {
public:
  explicit SelectionServer(SelectionConnection& connection)
      : connection_(connection), sends_(connection) {}

  /// More data may be set in the contents later; call `dataWasSet` then. Null: another program owns
  /// the clipboard.
  void serve(std::shared_ptr<const ClipboardContents> contents, xcb_timestamp_t since);
  void dataWasSet();

  void handle(const xcb_generic_event_t& event);
  /// Answers or drops what has reached its timeout.
  void doDueWork();
  /// The window that was sent data last, lists of targets aside; none since `forgetReader`.
  [[nodiscard]] xcb_window_t lastReader() const { return lastReader_; }
  void forgetReader() { lastReader_ = XCB_WINDOW_NONE; }
  [[nodiscard]] bool isIdle() const { return pendingRequests_.empty() && sends_.isIdle(); }

private:
  using Request = xcb_selection_request_event_t;
  void answer(const Request& request);
  [[nodiscard]] bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
  [[nodiscard]] bool convertMany(const Request& request, xcb_atom_t property);
  [[nodiscard]] ServedTarget targetList();
  void notify(const Request& request, xcb_atom_t property);
  void answerPending();

  SelectionConnection& connection_;
  IncrementalSends sends_;
  std::shared_ptr<const ClipboardContents> contents_;
  xcb_timestamp_t since_ = 0;
  SelectionTime dataDeadline_;
  std::vector<Request> pendingRequests_;
  xcb_window_t lastReader_ = XCB_WINDOW_NONE;
};

} // namespace tavrel
