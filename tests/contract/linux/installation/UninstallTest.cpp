#include "platform/linux/installation/LinuxAuthorization.h"
#include "platform/linux/session/LinuxSystemEvents.h"
#include "support/Desktop.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr std::uint32_t asking = authorizationFlag::interactionAllowed |
                                 authorizationFlag::extendRights | authorizationFlag::preAuthorize;

// An installation in a scratch folder, with the real helper, and an authority that says yes.
class Rights : public ::testing::Test {
protected:
  Rights() {
    fs::create_directories(folder.path("usr/libexec/tavrel"));
    fs::copy_file(TAVREL_UNINSTALL_HELPER, helper);
    for (const char* component :
         {"usr/lib/tavrel/Tavrel.plugin", "usr/lib/tavrel/TavrelPref.prefPane",
          "home/.local/lib/tavrel/Tavrel.plugin", "home/.local/lib/tavrel/TavrelPref.prefPane",
          "usr/lib/other"})
      fs::create_directories(folder.path(component) + "/inside");
    authority("exec \"$@\"");
  }

  void authority(const std::string& what) {
    folder.write("authority", "#!/bin/sh\n" + what + "\n");
    fs::permissions(folder.path("authority"), fs::perms::owner_all);
  }
  std::unique_ptr<AuthorizationRef> session() {
    return LinuxAuthorization({folder.path("authority"), helper}).create();
  }
  std::optional<std::string> remove(AuthorizationRef& reference, const std::string& path) {
    const auto output = reference.executeWithPrivileges("/bin/rm", {"-rf", path});
    std::string said;
    for (std::string read = output ? (*output)(128) : ""; !read.empty(); read = (*output)(128))
      said.append(read);
    return output ? std::optional(said) : std::nullopt;
  }
  bool isThere(const std::string& name) { return fs::exists(folder.path(name)); }

  TemporaryFolder folder;
  std::string helper = folder.path("usr/libexec/tavrel/tavrel-uninstall-helper");
  EnvironmentVariable home{"HOME", folder.path("home")};
  const std::string plugin = "/Library/Contextual Menu Items/Tavrel.plugin";
  const std::string pane = "/Library/PreferencePanes/TavrelPref.prefPane";
};

TEST_F(Rights, GrantedOnceTheyRemoveAllFourPieces) {
  authority("echo asked >>" + folder.path("asked") + "; exec \"$@\"");
  const auto reference = session();
  ASSERT_TRUE(reference->copyRights("qorvane.tavrel.uninstall", asking));
  for (const std::string& path :
       {plugin, folder.path("home") + plugin, pane, folder.path("home") + pane})
    EXPECT_EQ(remove(*reference, path), "") << path;
  reference->free(authorizationFlag::destroyRights);
  for (const char* base : {"usr/lib/tavrel/", "home/.local/lib/tavrel/"})
    EXPECT_TRUE(fs::is_empty(folder.path(base))) << base;
  EXPECT_TRUE(isThere("usr/lib/other"));
  EXPECT_EQ(folder.read("asked"), "asked\n");
}

TEST_F(Rights, RefusedTheyAreNone) {
  authority("exit 126");
  const auto reference = session();
  EXPECT_FALSE(reference->copyRights("qorvane.tavrel.uninstall", asking));
  EXPECT_EQ(remove(*reference, plugin), std::nullopt);
  reference->free(authorizationFlag::destroyRights);
  EXPECT_TRUE(isThere("usr/lib/tavrel/Tavrel.plugin"));
}

TEST_F(Rights, WithoutAnAuthorityThereAreNoneAndThatIsTold) {
  ::testing::internal::CaptureStderr();
  const auto reference = LinuxAuthorization({"/nonexistent/pkexec", helper}).create();
  EXPECT_FALSE(reference->copyRights("qorvane.tavrel.uninstall", asking));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("cannot be started"));
}

TEST_F(Rights, OfAnotherNameOrWithoutAskingThereAreNone) {
  EXPECT_FALSE(session()->copyRights("system.everything", asking));
  EXPECT_FALSE(session()->copyRights("qorvane.tavrel.uninstall", authorizationFlag::extendRights));
}

TEST_F(Rights, RemoveNothingButThePieces) {
  const auto reference = session();
  ASSERT_TRUE(reference->copyRights("qorvane.tavrel.uninstall", asking));
  for (const std::string& path : {std::string(), std::string("/"), folder.path("usr/lib/other")})
    EXPECT_EQ(remove(*reference, path), std::nullopt);
  EXPECT_EQ(reference->executeWithPrivileges("/bin/sh", {"-c", "true"}).has_value(), false);
  EXPECT_EQ(reference->executeWithPrivileges("/bin/rm", {plugin}).has_value(), false);
  reference->free(authorizationFlag::destroyRights);
  EXPECT_TRUE(isThere("usr/lib/other"));
}

TEST_F(Rights, APieceBehindALinkIsRefusedInWords) {
  fs::remove_all(folder.path("home/.local/lib"));
  fs::create_directory_symlink(folder.path("usr/lib"), folder.path("home/.local/lib"));
  const auto reference = session();
  ASSERT_TRUE(reference->copyRights("qorvane.tavrel.uninstall", asking));
  EXPECT_THAT(remove(*reference, folder.path("home") + plugin).value_or(""),
              HasSubstr("leads through a link"));
  reference->free(authorizationFlag::destroyRights);
  EXPECT_TRUE(isThere("usr/lib/tavrel/Tavrel.plugin"));
}

TEST_F(Rights, AHelperThatDiesLeavesTheRestUndone) {
  authority("echo ready; exit 0");
  const auto reference = session();
  (void)reference->copyRights("qorvane.tavrel.uninstall", asking);
  (void)remove(*reference, plugin);
  reference->free(authorizationFlag::destroyRights);
  EXPECT_TRUE(isThere("usr/lib/tavrel/Tavrel.plugin"));
}

/// A session manager that writes down what it is asked.
class FakeSessionManager final : public QDBusVirtualObject {
public:
  FakeSessionManager(const QString& name, const QString& path) : name_(name) {
    bus_.registerVirtualObject(path, this);
    bus_.registerService(name);
  }
  ~FakeSessionManager() override {
    bus_.unregisterService(name_);
    QDBusConnection::disconnectFromBus("fake session manager");
  }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override {
    asked.append(call.interface() + "." + call.member());
    arguments = call.arguments();
    return true;
  }
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }

  QStringList asked;
  QVariantList arguments;

private:
  QString name_;
  QDBusConnection bus_ =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, "fake session manager");
};

TEST(LogOut, IsAskedOfTheSessionManagerThatRuns) {
  FakeSessionManager manager("org.xfce.SessionManager", "/org/xfce/SessionManager");
  LinuxSystemEvents events;
  EXPECT_EQ(events.send({kCoreEventClass, kAEReallyLogOut}), 0);
  ASSERT_TRUE(eventually([&] { return !manager.asked.isEmpty(); }));
  EXPECT_EQ(manager.asked.first(), "org.xfce.Session.Manager.Logout");
  EXPECT_EQ(manager.arguments, (QVariantList{false, true}));
}

TEST(LogOut, WithoutASessionManagerNothingHappensAndThatIsTold) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(LinuxSystemEvents().send({kCoreEventClass, kAEReallyLogOut}), -600);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("no session manager"));
}

TEST(LogOut, AnotherEventIsNotHandled) {
  EXPECT_EQ(LinuxSystemEvents().send({kCoreEventClass, 0}), -1708);
}

} // namespace
} // namespace tavrel
