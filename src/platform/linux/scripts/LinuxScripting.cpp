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
    object_.offer(scriptingInterface(*application_, [this] { askForRemoval(); }));
  else
    object_.withdraw(QString::fromLatin1(scriptingInterfaceName));
}

// The removal asks the person, and whoever called is not to wait for that. It is asked for once,
// however often it was called for until it is over.
void LinuxScripting::askForRemoval() {
  if (removal_ == Removal::asked)
    return;
  removal_ = Removal::asked;
  QTimer::singleShot(0, this, [this] { remove(); });
}

void LinuxScripting::remove() {
  const QPointer<LinuxScripting> still(this);
  if (application_ != nullptr)
    application_->handleUninstallScriptCommand();
  if (still)
    removal_ = Removal::none;
}

} // namespace tavrel
