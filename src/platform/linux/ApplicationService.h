#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

namespace tavrel {

class ServicesProvider;

/// org.freedesktop.Application on the bus: every way to start us once more asks for the pop-up.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
  ApplicationAdaptor(QObject* object, std::function<void()> activated)
      : QDBusAbstractAdaptor(object), activated_(std::move(activated)) {}

public Q_SLOTS:
  void Activate(const QVariantMap&) { activated_(); }
  void Open(const QStringList&, const QVariantMap&) { activated_(); }
  void ActivateAction(const QString&, const QVariantList&, const QVariantMap&) { activated_(); }

private:
  std::function<void()> activated_;
};

/// Our own service, as the desktop asks for it: at the path /qorvane/tavrel/Tavrel of the session
/// bus. The caller is answered first; the provider is called from the event loop, once however
/// often it was asked for meanwhile, and never while a menu is open.
class ApplicationService final : public QObject {
public:
  ApplicationService();
  ~ApplicationService() override;

  void setProvider(ServicesProvider* provider) { provider_ = provider; }

private:
  enum class State { idle, asked, atWork };
  void ask();
  void serve();

  ServicesProvider* provider_ = nullptr;
  State state_ = State::idle;
};

} // namespace tavrel
