#include "platform/linux/scripts/LinuxScripting.h"

#include "platform/linux/dbus/BusObject.h"
#include "platform/linux/dbus/ScriptingInterface.h"

#include <QPointer>
#include <QTimer>

namespace tavrel {

LinuxScripting::~LinuxScripting() {
  setApplication(nullptr);
}

void LinuxScripting::setApplication(ScriptableApplication* application) {
  application_ = application;
  if (application_ != nullptr)
    object_.offer(scriptingInterface(*application_, [this] { scheduleRemoval(); }));
  else
    object_.withdraw(QString::fromLatin1(scriptingInterfaceName));
}

// The removal asks the user, and the caller is not to wait for that. Calls that come before it is
// over have no effect.
void LinuxScripting::scheduleRemoval() {
  if (removal_ == Removal::scheduled)
    return;
  removal_ = Removal::scheduled;
  QTimer::singleShot(0, this, [this] { remove(); });
}

void LinuxScripting::remove() {
  const QPointer<LinuxScripting> alive(this);
  if (application_ != nullptr)
    application_->handleUninstallScriptCommand();
  if (alive)
    removal_ = Removal::none;
}

} // namespace tavrel
