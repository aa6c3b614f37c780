#include "platform/linux/dbus/ApplicationService.h"

#include "platform/Services.h"
#include "platform/linux/dbus/BusObject.h"

#include <QApplication>
#include <QTimer>

namespace tavrel {

namespace {

const QString applicationInterfaceName = QStringLiteral("org.freedesktop.Application");

const QString applicationDescription = QStringLiteral(R"(    <method name="Activate">
      <arg type="a{sv}" name="platform-data" direction="in"/>
    </method>
    <method name="Open">
      <arg type="as" name="uris" direction="in"/>
      <arg type="a{sv}" name="platform-data" direction="in"/>
    </method>
    <method name="ActivateAction">
      <arg type="s" name="action-name" direction="in"/>
      <arg type="av" name="parameter" direction="in"/>
      <arg type="a{sv}" name="platform-data" direction="in"/>
    </method>
)");

} // namespace

ApplicationService::ApplicationService(BusObject& object) : object_(object) {
  const auto activate = [this](const QVariantList&) -> BusAnswer {
    requestPopup();
    return QVariantList();
  };
  object_.offer({applicationInterfaceName,
                 applicationDescription,
                 {{QStringLiteral("Activate"), QStringLiteral("a{sv}"), activate},
                  {QStringLiteral("Open"), QStringLiteral("asa{sv}"), activate},
                  {QStringLiteral("ActivateAction"), QStringLiteral("sava{sv}"), activate}},
                 {}});
}

ApplicationService::~ApplicationService() {
  object_.withdraw(applicationInterfaceName);
}

void ApplicationService::requestPopup() {
  if (state_ != State::idle)
    return;
  state_ = State::requested;
  QTimer::singleShot(0, this, [this] { showPopup(); });
}

void ApplicationService::showPopup() {
  state_ = State::serving;
  if (provider_ && !QApplication::activePopupWidget())
    provider_->invokeTavrelPopup(nullptr, {}, nullptr);
  state_ = State::idle;
}

} // namespace tavrel
