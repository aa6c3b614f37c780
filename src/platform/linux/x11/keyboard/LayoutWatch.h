#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <functional>

namespace tavrel {

/// Calls from the event loop when keys or modifiers of the server may have got other places: once
/// for the burst of notices that one change makes.
class LayoutWatch final : private QAbstractNativeEventFilter {
public:
  explicit LayoutWatch(std::function<void()> changed);

private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  QTimer settled_;
};

} // namespace tavrel
