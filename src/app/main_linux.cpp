#include "app/CommandLine.h"
#include "controller/SettingKeys.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "platform/Services.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/dbus/SingleInstance.h"
#include "platform/linux/installation/ResourceFolder.h"
#include "platform/linux/system/TerminationSignals.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>

namespace {

/// The end of the event stream: Qt has handled every event by itself.
class QtEvents final : public tavrel::EventTarget {
public:
  void sendEvent(const tavrel::Event&) override {}
};

// How panels and the lists of windows show whose they are.
void nameWindows() {
  const QString id = QStringLiteral("qorvane.tavrel.Tavrel");
  const QString folder = QString::fromStdString(tavrel::resourceFolder());
  QApplication::setDesktopFileName(id);
  QApplication::setWindowIcon(QIcon(folder + "/icons/" + id + ".svg"));
}

int run(int argc, char** argv) {
  if (!tavrel::LinuxDesktop::hasDisplay()) {
    std::fputs("tavrel: no display: neither the X server of DISPLAY nor the Wayland compositor of "
               "WAYLAND_DISPLAY answers\n",
               stderr);
    return 1;
  }
  QApplication qt(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tavrel::SingleInstance instance;
  if (!instance.isFirst()) {
    if (!instance.askFirstToPopUp())
      std::fputs("tavrel: it is running already in this session, and does not answer\n", stderr);
    return 0;
  }
  nameWindows();
  const tavrel::TerminationSignals signals;
  tavrel::LinuxDesktop desktop{tavrel::TVR_CopyKeyExceptions};
  tavrel::installPlatform(desktop.ports());
  QtEvents base;
  tavrel::TVApplication application(base);
  tavrel::TVController controller(application);
  controller.applicationWillFinishLaunching();
  controller.applicationDidFinishLaunching();
  return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
  const std::span<const char* const> arguments(argv + 1, static_cast<std::size_t>(argc - 1));
  switch (tavrel::commandFromArguments(arguments)) {
  case tavrel::Command::start:
    return run(argc, argv);
  case tavrel::Command::help:
    std::fputs(tavrel::helpText().c_str(), stdout);
    return 0;
  case tavrel::Command::version:
    std::puts("tavrel " TAVREL_VERSION);
    return 0;
  case tavrel::Command::misuse:
    std::fputs(tavrel::helpText().c_str(), stderr);
    return 2;
  }
}
