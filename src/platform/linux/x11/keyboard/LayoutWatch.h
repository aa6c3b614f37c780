#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <functional>

namespace tavrel {

/// Calls back, from the event loop, when the server's layout or modifier mapping has changed: once
/// for the burst of events that one change makes.
class LayoutWatch final : private QAbstractNativeEventFilter {
public:
  explicit LayoutWatch(std::function<void()> changed);

private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  QTimer burstTimer_;
};

} // namespace tavrel
