#pragma once

#include "platform/linux/x11/clipboard/IncrementalSends.h"

#include <memory>

namespace tavrel {

/// Answers the programs that paste while the clipboard is ours: TARGETS, TIMESTAMP, MULTIPLE and
/// what `ClipboardTargets.h` says. Who asks while data is still being set is answered when it is
/// there, or when it has not come for 200 ms.
class SelectionServer {
public:
  explicit SelectionServer(SelectionConnection& connection)
      : connection_(connection), sends_(connection) {}

  /// The contents may still grow; `contentsGrew` tells of it. Null: the clipboard is not ours.
  void serve(std::shared_ptr<const ClipboardContents> contents, xcb_timestamp_t since);
  void contentsGrew();

  void handle(const xcb_generic_event_t& event);
  /// Gives up what waited too long.
  void look();
  [[nodiscard]] bool isIdle() const { return waiting_.empty() && sends_.isIdle(); }

private:
  using Request = xcb_selection_request_event_t;
  void answer(const Request& request);
  [[nodiscard]] bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
  [[nodiscard]] bool convertMany(const Request& request, xcb_atom_t property);
  [[nodiscard]] ServedTarget targetList();
  void notify(const Request& request, xcb_atom_t property);
  void answerWaiting();

  SelectionConnection& connection_;
  IncrementalSends sends_;
  std::shared_ptr<const ClipboardContents> contents_;
  xcb_timestamp_t since_ = 0;
  SelectionTime dataIsDue_;
  std::vector<Request> waiting_;
};

} // namespace tavrel
