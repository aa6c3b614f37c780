#include "platform/linux/ApplicationService.h"

#include "platform/Services.h"
#include "platform/linux/BusName.h"

#include <QApplication>
#include <QDBusConnection>
#include <QTimer>

namespace tavrel {

ApplicationService::ApplicationService() {
  new ApplicationAdaptor(this, [this] { ask(); });
  QDBusConnection::sessionBus().registerObject(busPath, this, QDBusConnection::ExportAdaptors);
}

ApplicationService::~ApplicationService() {
  QDBusConnection::sessionBus().unregisterObject(busPath);
}

void ApplicationService::ask() {
  if (state_ != State::idle)
    return;
  state_ = State::asked;
  QTimer::singleShot(0, this, [this] { serve(); });
}

void ApplicationService::serve() {
  state_ = State::atWork;
  if (provider_ && !QApplication::activePopupWidget())
    provider_->invokeTavrelPopup(nullptr, {}, nullptr);
  state_ = State::idle;
}

} // namespace tavrel
