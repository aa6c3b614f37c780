#pragma once

#include <QObject>

namespace tavrel {

class BusObject;
class ServicesProvider;

/// Our own service, as the desktop asks for it (org.freedesktop.Application): every way to start us
/// once more asks for the pop-up. The caller is answered first; the provider is called from the
/// event loop, once however often it was asked for meanwhile, and never while a menu is open.
class ApplicationService final : public QObject {
public:
  /// The object must outlive this.
  explicit ApplicationService(BusObject& object);
  ~ApplicationService() override;

  void setProvider(ServicesProvider* provider) { provider_ = provider; }

private:
  enum class State { idle, asked, atWork };
  void ask();
  void serve();

  BusObject& object_;
  ServicesProvider* provider_ = nullptr;
  State state_ = State::idle;
};

} // namespace tavrel
