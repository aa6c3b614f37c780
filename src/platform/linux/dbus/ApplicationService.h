#pragma once

#include <QObject>

namespace tavrel {

class BusObject;
class ServicesProvider;

/// org.freedesktop.Application for this program: the desktop calls it when the user starts us a
/// second time, and each of its methods opens the pop-up menu. The caller is answered first; the
/// provider is called from the event loop, once for all requests that came meanwhile, and never
/// while a menu is open.
class ApplicationService final : public QObject {
public:
  /// The object must outlive this.
  explicit ApplicationService(BusObject& object);
  ~ApplicationService() override;

  void setProvider(ServicesProvider* provider) { provider_ = provider; }

private:
  enum class State { idle, requested, serving };
  void requestPopup();
  void showPopup();

  BusObject& object_;
  ServicesProvider* provider_ = nullptr;
  State state_ = State::idle;
};

} // namespace tavrel
