#include "contract/NotificationCenterContract.h"

#include "platform/common/InProcessNotificationCenter.h"
#include "platform/linux/dbus/DBusSignalReceiver.h"
#include "platform/linux/dbus/LinuxDistributedNotificationCenter.h"
#include "support/Desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

#include <algorithm>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

struct LocalWorld {
  InProcessNotificationCenter adapter;
  NotificationCenter& center() { return adapter; }
  void deliver() {}
};

QDBusConnection connection() {
  return QDBusConnection(LinuxDistributedNotificationCenter::connectionName);
}

// The bus keeps the order, so a signal of the test's own tells that all before it have arrived.
struct BusWorld {
  LinuxDistributedNotificationCenter adapter;
  bool arrived = false;
  DBusSignalReceiver end{[this](const QDBusMessage&) { arrived = true; }};

  BusWorld() {
    connection().connect(QString(), "/test", "tavrel.Test", "End", &end,
                         SLOT(receive(QDBusMessage)));
  }
  NotificationCenter& center() { return adapter; }
  void deliver() {
    arrived = false;
    connection().send(QDBusMessage::createSignal("/test", "tavrel.Test", "End"));
    EXPECT_TRUE(eventually([this] { return arrived; }));
  }
};

using Worlds = ::testing::Types<LocalWorld, BusWorld>;
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, NotificationCenterContract, Worlds);

// What another program says, in the notation of GVariant.
void emitSignal(const QStringList& arguments) {
  QProcess::execute("gdbus", QStringList{"emit", "--session", "--object-path",
                                         "/qorvane/tavrel/DistributedNotifications", "--signal",
                                         "qorvane.tavrel.DistributedNotifications.Posted"} +
                                 arguments);
}

class Distributed : public ::testing::Test {
protected:
  BusWorld world;
  std::vector<Notification> heard;
  Distributed() {
    (void)world.adapter.addObserver({},
                                    [this](const Notification& each) { heard.push_back(each); });
  }
  bool hears(std::size_t count) {
    return eventually([&] { return heard.size() >= count; });
  }
};

TEST_F(Distributed, AnotherProgramIsHeardInItsOwnTypes) {
  emitSignal({"qorvane.tavrel.cm", "execScript",
              "{'text': <'Grüße'>, 'yes': <true>, 'byte': <byte 7>, 'int': <int32 -3>,"
              " 'unsigned': <uint64 9>, 'real': <2.5>, 'bytes': <[byte 0, 255]>,"
              " 'texts': <['a', 'b']>, 'numbers': <[1, 2]>, 'grid': <[[1], [2, 3]]>,"
              " 'records': <[{'k': <1>}, {'k': <'v'>}]>, 'plain': <{'a': 'b'}>,"
              " 'none': <@as []>, 'wrapped': <<true>>}"});
  ASSERT_TRUE(hears(1));
  using Dictionary = PropertyList::Dictionary;
  using Array = PropertyList::Array;
  EXPECT_EQ(heard[0].name, "execScript");
  EXPECT_EQ(heard[0].object, "qorvane.tavrel.cm");
  EXPECT_EQ(heard[0].userInfo,
            (Dictionary{{"text", "Grüße"},
                        {"yes", true},
                        {"byte", 7},
                        {"int", -3},
                        {"unsigned", 9},
                        {"real", 2.5},
                        {"bytes", Bytes{0, 255}},
                        {"texts", Array{"a", "b"}},
                        {"numbers", Array{1, 2}},
                        {"grid", Array{Array{1}, Array{2, 3}}},
                        {"records", Array{Dictionary{{"k", 1}}, Dictionary{{"k", "v"}}}},
                        {"plain", Dictionary{{"a", "b"}}},
                        {"none", Array{}},
                        {"wrapped", true}}));
}

TEST_F(Distributed, ValuesOfForeignKindsAreLeftOutWithALine) {
  for (const char* foreign :
       {"<uint64 18446744073709551615>", "<objectpath '/a'>", "<{1: 'a'}>", "<(1, 2)>"}) {
    ::testing::internal::CaptureStderr();
    emitSignal({"object", "name",
                QStringLiteral("{'foreign': %1, 'list': <[<1>, %1]>, 'inner': <{'a': %1}>, "
                               "'good': <true>}")
                    .arg(QLatin1String(foreign))});
    EXPECT_TRUE(hears(1));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "tavrel.notifications: values of foreign kinds were left out of a notification\n");
    ASSERT_EQ(heard.size(), 1U) << foreign;
    EXPECT_EQ(heard[0].userInfo,
              (PropertyList::Dictionary{{"list", PropertyList::Array{std::int64_t{1}}},
                                        {"inner", PropertyList::Dictionary()},
                                        {"good", true}}));
    heard.clear();
  }
}

TEST_F(Distributed, WhatHasAnotherFormIsIgnoredWithALine) {
  const std::vector<QStringList> foreign{
      {"'one'"}, {"object", "name", "[1]"}, {"object", "name", "@a{sv} {}", "'more'"}};
  for (const QStringList& arguments : foreign) {
    ::testing::internal::CaptureStderr();
    emitSignal(arguments);
    world.deliver();
    emitSignal({"object", "good", "@a{sv} {}"});
    EXPECT_TRUE(hears(1));
    const std::string lines = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
    EXPECT_THAT(lines, ::testing::HasSubstr("was ignored"));
    ASSERT_EQ(heard.size(), 1U) << arguments.join(' ').toStdString();
    EXPECT_EQ(heard[0].name, "good");
    heard.clear();
  }
}

TEST_F(Distributed, PostComesBackBeforeAnybodyHears) {
  world.adapter.post({"later", std::nullopt, {}});
  EXPECT_TRUE(heard.empty());
  EXPECT_TRUE(hears(1));
}

// A handler that asks the user something runs an event loop of its own meanwhile.
TEST_F(Distributed, TheNextOneWaitsUntilAHandlerIsBack) {
  std::vector<std::string> diary;
  (void)world.adapter.addObserver({}, [&](const Notification& each) {
    diary.push_back("begin " + each.name);
    if (each.name == "first")
      world.deliver();
    diary.push_back("end " + each.name);
  });
  world.adapter.post({"first", std::nullopt, {}});
  world.adapter.post({"second", std::nullopt, {}});
  EXPECT_TRUE(eventually([&] { return diary.size() >= 4; }));
  EXPECT_THAT(diary, ElementsAre("begin first", "end first", "begin second", "end second"));
}

TEST(HeldBack, WhatArrivesWhileAMenuIsOpenWaitsAndKeepsItsOrder) {
  bool open = true;
  std::vector<std::string> heard;
  LinuxDistributedNotificationCenter center([&] { return open; });
  (void)center.addObserver({}, [&](const Notification& each) { heard.push_back(each.name); });
  center.deliver({"one", std::nullopt, {}});
  center.deliver({"two", std::nullopt, {}});
  EXPECT_TRUE(heard.empty());
  open = false;
  center.resume();
  EXPECT_TRUE(heard.empty()) << "not inside the call of whoever closed the menu";
  EXPECT_TRUE(eventually([&] { return heard.size() == 2; }));
  center.deliver({"three", std::nullopt, {}});
  EXPECT_THAT(heard, ElementsAre("one", "two", "three"));
}

TEST(HeldBack, AHandlerThatOpensAMenuHoldsTheNextOneBack) {
  bool open = false;
  std::vector<std::string> heard;
  LinuxDistributedNotificationCenter center([&] { return open; });
  (void)center.addObserver({}, [&](const Notification& each) {
    heard.push_back(each.name);
    open = true;
    center.deliver({"inner", std::nullopt, {}});
  });
  center.deliver({"outer", std::nullopt, {}});
  EXPECT_THAT(heard, ElementsAre("outer"));
}

TEST_F(Distributed, TwoCentersHearEachOther) {
  LinuxDistributedNotificationCenter other;
  other.post({"hello", "other", {{"n", 1}}});
  ASSERT_TRUE(hears(1));
  EXPECT_EQ(heard[0].object, "other");
}

PropertyList::Dictionary nested(int levels) {
  PropertyList::Dictionary inner;
  for (int level = 0; level < levels; ++level)
    inner = PropertyList::Dictionary{{"in", inner}};
  return inner;
}

TEST_F(Distributed, WhatTheBusCarriesArrivesAndAnythingDeeperStaysAtHome) {
  world.adapter.post({"deepest", std::nullopt, nested(20)});
  ::testing::internal::CaptureStderr();
  world.adapter.post({"deeper", std::nullopt, nested(21)});
  world.adapter.post({"abysmal", std::nullopt, nested(5000)});
  const std::string lines = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 2) << lines;
  world.adapter.post({"next", std::nullopt, {}});
  ASSERT_TRUE(hears(2));
  EXPECT_EQ(heard[0].userInfo, nested(20));
  EXPECT_EQ(heard[1].name, "next");
}

// Run as a program of its own, because a process meets its bus once.
TEST(WithoutABus, DISABLED_PostingIsHarmless) {
  LinuxDistributedNotificationCenter center;
  (void)center.addObserver({}, [](const Notification&) {});
  center.post({"lost", std::nullopt, {}});
}

TEST(WithoutABus, ALineSaysSoAndTheProgramGoesOn) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
  program.setProcessEnvironment(environment);
  program.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=WithoutABus.DISABLED_*", "--gtest_also_run_disabled_tests"});
  ASSERT_TRUE(program.waitForFinished(20000));
  EXPECT_EQ(program.exitCode(), 0);
  const QString lines = QString::fromUtf8(program.readAllStandardError());
  EXPECT_EQ(lines.count("no session bus"), 1) << lines.toStdString();
}

} // namespace
} // namespace tavrel
