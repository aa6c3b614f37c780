#include "platform/linux/session/LinuxSystemEvents.h"
#include "support/Desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel {
namespace {

/// How a session manager is asked to log out at once, without asking the user a second time.
struct LogOutCall {
  QString name;
  QString path;
  QString interface;
  QString method;
  QVariantList arguments;
};

const LogOutCall gnome{"org.gnome.SessionManager",
                       "/org/gnome/SessionManager",
                       "org.gnome.SessionManager",
                       "Logout",
                       {1U}}; // no confirmation
const LogOutCall xfce{"org.xfce.SessionManager",
                      "/org/xfce/SessionManager",
                      "org.xfce.Session.Manager",
                      "Logout",
                      {false, true}}; // show no dialog, save if the session is to be saved
const LogOutCall plasma{"org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown", "logout", {}};
const LogOutCall olderPlasma{"org.kde.ksmserver",
                             "/KSMServer",
                             "org.kde.KSMServerInterface",
                             "logout",
                             {0, 0, 0}}; // no confirmation, no shutdown, as soon as possible
const LogOutCall lxqt{"org.lxqt.session", "/LXQtSession", "org.lxqt.session", "logout", {}};

/// A session manager on the bus that notes what it is asked.
class FakeSessionManager final : public QDBusVirtualObject {
public:
  explicit FakeSessionManager(const LogOutCall& call) : name_(call.name) {
    EXPECT_TRUE(bus_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath));
    EXPECT_TRUE(bus_.registerService(name_));
  }
  ~FakeSessionManager() override { QDBusConnection::disconnectFromBus(name_); }
  FakeSessionManager(const FakeSessionManager&) = delete;
  FakeSessionManager& operator=(const FakeSessionManager&) = delete;

  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    calls.push_back(call);
    return bus.send(call.createReply());
  }
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }

  std::vector<QDBusMessage> calls;

private:
  QString name_;
  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_);
};

std::int32_t logOut() {
  LinuxSystemEvents events;
  return events.send({kCoreEventClass, kAEReallyLogOut});
}

TEST(LinuxSystemEvents, EachSessionManagerIsAskedInItsOwnWay) {
  for (const LogOutCall& expected : {gnome, xfce, plasma, olderPlasma, lxqt}) {
    FakeSessionManager manager(expected);
    EXPECT_EQ(logOut(), 0) << qPrintable(expected.name);
    ASSERT_TRUE(eventually([&] { return !manager.calls.empty(); })) << qPrintable(expected.name);
    const QDBusMessage& call = manager.calls.front();
    EXPECT_EQ(call.path(), expected.path);
    EXPECT_EQ(call.interface(), expected.interface);
    EXPECT_EQ(call.member(), expected.method);
    EXPECT_EQ(call.arguments(), expected.arguments) << qPrintable(expected.name);
  }
}

TEST(LinuxSystemEvents, WithoutASessionManagerNothingHappensAndOneLineSaysSo) {
  ::testing::internal::CaptureStderr();
  EXPECT_LT(logOut(), 0);
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(said,
            "tavrel.session: no session manager is running: log out as this desktop has it\n");
}

TEST(LinuxSystemEvents, OtherEventsAreNotHandled) {
  FakeSessionManager manager(gnome);
  LinuxSystemEvents events;
  EXPECT_LT(events.send({kCoreEventClass, 0x73687574}), 0) << "'shut'";
  EXPECT_EQ(logOut(), 0);
  ASSERT_TRUE(eventually([&] { return !manager.calls.empty(); }));
  EXPECT_EQ(manager.calls.size(), 1U);
}

} // namespace
} // namespace tavrel
