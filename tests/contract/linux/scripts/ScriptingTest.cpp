#include "contract/linux/scripts/FakeScriptable.h"
#include "platform/linux/dbus/BusName.h"
#include "platform/linux/dbus/BusObject.h"
#include "platform/linux/dbus/SingleInstance.h"
#include "platform/linux/scripts/LinuxScripting.h"
#include "support/Desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

/// Another program of the session talks to the one that runs.
class ScriptingOnTheBus : public ::testing::Test {
protected:
  ScriptingOnTheBus() { scripting.setApplication(&application); }

  QDBusMessage call(const QString& interface, const QString& method,
                    const QVariantList& arguments = {}) {
    QDBusMessage message = QDBusMessage::createMethodCall(busName, busPath, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = other.asyncCall(message);
    EXPECT_TRUE(eventually([&] { return pending.isFinished(); }));
    return pending.reply();
  }
  QDBusMessage scriptingCall(const QString& method, const QVariantList& arguments = {}) {
    return call(QStringLiteral("qorvane.tavrel.Scripting"), method, arguments);
  }
  QDBusMessage properties(const QString& method, const QVariantList& arguments) {
    return call(QStringLiteral("org.freedesktop.DBus.Properties"), method, arguments);
  }
  QDBusMessage get(const QString& property) {
    return properties(QStringLiteral("Get"), {"qorvane.tavrel.Scripting", property});
  }

  /// What the variant of an answer holds.
  static QVariant held(const QDBusMessage& answer) {
    return answer.arguments().value(0).value<QDBusVariant>().variant();
  }
  static std::string text(const QDBusMessage& answer) {
    return answer.type() == QDBusMessage::ErrorMessage ? answer.errorName().toStdString()
                                                       : held(answer).toString().toStdString();
  }
  /// The type that travelled, as a signature, and the value.
  static QVariant contextOf(const QDBusMessage& answer) {
    return held(answer).value<QDBusVariant>().variant();
  }
  QDBusMessage convert(const QString& endings, bool raw = false) {
    return scriptingCall(QStringLiteral("Convert"), {"a b", "Unicode (UTF-8)", raw, endings});
  }
  const PropertyList* argument(const char* key) {
    const ScriptArguments& last = application.conversions.back();
    const auto found = last.find(key);
    return found == last.end() ? nullptr : &found->second;
  }

  SingleInstance instance;
  QDBusConnection other =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("other"));
  FakeScriptable application;
  BusObject busObject;
  LinuxScripting scripting{busObject};
};

TEST_F(ScriptingOnTheBus, CopyAsksTheApplication) {
  EXPECT_EQ(scriptingCall("CopyToClipboard").type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(application.copies, 1);
}

TEST_F(ScriptingOnTheBus, ConvertHandsOverEveryArgument) {
  EXPECT_EQ(text(convert("LF", true)), "a%20b");
  EXPECT_EQ(*argument("sourceString"), PropertyList("a b"));
  EXPECT_EQ(*argument("targetEncoding"), PropertyList("Unicode (UTF-8)"));
  EXPECT_EQ(*argument("rawData"), PropertyList(true));
}

TEST_F(ScriptingOnTheBus, LineEndingsAreTheirCodes) {
  (void)convert("CR");
  EXPECT_EQ(*argument("targetLineEndings"), PropertyList(std::int64_t{0x43522020}));
  (void)convert("CRLF");
  EXPECT_EQ(*argument("targetLineEndings"), PropertyList(std::int64_t{0x43524C46}));
  for (const char* each : {"LF", "", "crlf", "CR  "}) {
    (void)convert(each);
    EXPECT_EQ(argument("targetLineEndings"), nullptr) << each;
  }
}

TEST_F(ScriptingOnTheBus, ConvertedDataComeAsBytes) {
  application.converted = Bytes{'%', '0', 'A'};
  const QVariant value = held(convert("LF", true));
  EXPECT_EQ(value.metaType(), QMetaType::fromType<QByteArray>());
  EXPECT_EQ(value.toByteArray(), QByteArray("%0A"));
}

TEST_F(ScriptingOnTheBus, WhatNoMessageCanCarryIsAnError) {
  application.converted = std::string(std::size_t{65} << 20, 'x');
  EXPECT_EQ(text(convert("LF")), "org.freedesktop.DBus.Error.LimitsExceeded");
  application.context = Bytes(std::size_t{65} << 20, 1);
  EXPECT_EQ(text(get("contextObject")), "org.freedesktop.DBus.Error.LimitsExceeded");
  EXPECT_EQ(text(get("hostAppName")), "Editor");
}

TEST_F(ScriptingOnTheBus, TheCallerOfUninstallIsAnsweredBeforeItIsOver) {
  application.duringRemoval = [&] { EXPECT_EQ(text(get("hostAppName")), "Editor"); };
  EXPECT_EQ(scriptingCall("Uninstall").type(), QDBusMessage::ReplyMessage);
  EXPECT_TRUE(eventually([&] { return application.removals == 1; }));
}

TEST_F(ScriptingOnTheBus, UninstallIsAskedForOnceUntilItIsOver) {
  application.duringRemoval = [&] { (void)scriptingCall("Uninstall"); };
  (void)scriptingCall("Uninstall");
  EXPECT_TRUE(eventually([&] { return application.removals == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(application.removals, 1);
  application.duringRemoval = [] {};
  (void)scriptingCall("Uninstall");
  EXPECT_TRUE(eventually([&] { return application.removals == 2; }));
}

TEST_F(ScriptingOnTheBus, TextPropertiesCanBeRead) {
  EXPECT_EQ(text(get("hostAppName")), "Editor");
  EXPECT_EQ(text(get("currentLocalization")), "English");
  EXPECT_EQ(text(get("longVersion")), "Tavrel 1.2");
  application.host = std::nullopt;
  application.version = std::nullopt;
  EXPECT_EQ(text(get("hostAppName")), "");
  EXPECT_EQ(text(get("longVersion")), "");
}

TEST_F(ScriptingOnTheBus, TheSelectionKeepsItsKind) {
  application.context = PropertyList::Array{"/a b", "/ü"};
  EXPECT_EQ(contextOf(get("contextObject")).toStringList(), QStringList({"/a b", "/ü"}));
  application.context = "words";
  EXPECT_EQ(contextOf(get("contextObject")), QVariant("words"));
  application.context = Bytes{0, 255};
  EXPECT_EQ(contextOf(get("contextObject")).toByteArray(), QByteArray("\0\xFF", 2));
  application.context = std::nullopt;
  EXPECT_EQ(contextOf(get("contextObject")), QVariant(""));
}

TEST_F(ScriptingOnTheBus, NoTextIsCutShortAtANullCharacter) {
  application.context = std::string("a\0b\xFF", 4);
  EXPECT_EQ(contextOf(get("contextObject")).toString(), QString::fromUtf8("a\uFFFDb\uFFFD"));
}

TEST_F(ScriptingOnTheBus, AllPropertiesComeAtOnce) {
  application.context = "words";
  const QDBusMessage answer = properties("GetAll", {"qorvane.tavrel.Scripting"});
  const QVariantMap all = qdbus_cast<QVariantMap>(answer.arguments().value(0));
  EXPECT_EQ(all.keys(),
            QStringList({"contextObject", "currentLocalization", "hostAppName", "longVersion"}));
  EXPECT_EQ(all["hostAppName"].toString(), "Editor");
}

TEST_F(ScriptingOnTheBus, NoPropertyCanBeSet) {
  const QDBusMessage answer =
      properties("Set", {"qorvane.tavrel.Scripting", "hostAppName",
                         QVariant::fromValue(QDBusVariant(QStringLiteral("x")))});
  EXPECT_EQ(text(answer), "org.freedesktop.DBus.Error.PropertyReadOnly");
}

TEST_F(ScriptingOnTheBus, WhatIsNotThereIsAnError) {
  EXPECT_EQ(text(get("colour")), "org.freedesktop.DBus.Error.UnknownProperty");
  EXPECT_EQ(text(scriptingCall("Erase")), "org.freedesktop.DBus.Error.UnknownMethod");
  EXPECT_EQ(text(scriptingCall("Convert", {"a"})), "org.freedesktop.DBus.Error.InvalidArgs");
  EXPECT_EQ(text(scriptingCall("CopyToClipboard", {1})), "org.freedesktop.DBus.Error.InvalidArgs");
  EXPECT_EQ(text(properties("Get", {})), "org.freedesktop.DBus.Error.UnknownProperty");
  EXPECT_EQ(text(properties("GetAll", {"none"})), "org.freedesktop.DBus.Error.UnknownInterface");
  EXPECT_EQ(application.copies, 0);
}

TEST_F(ScriptingOnTheBus, WithoutAnApplicationEverythingIsAnError) {
  scripting.setApplication(nullptr);
  EXPECT_EQ(scriptingCall("CopyToClipboard").type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(convert("CR").type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(scriptingCall("Uninstall").type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(get("hostAppName").type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(application.copies + application.removals, 0);
}

TEST_F(ScriptingOnTheBus, AnApplicationThatWentIsNotAskedToUninstall) {
  (void)scripting.application();
  const QDBusConnection nowhere{QString()}; // no answer goes to a message that nobody has sent
  const QDBusMessage message = QDBusMessage::createMethodCall(
      busName, busPath, QStringLiteral("qorvane.tavrel.Scripting"), QStringLiteral("Uninstall"));
  EXPECT_TRUE(busObject.handleMessage(message, nowhere));
  scripting.setApplication(nullptr);
  QCoreApplication::processEvents();
  EXPECT_EQ(application.removals, 0);
}

TEST_F(ScriptingOnTheBus, TheInterfaceDescribesItself) {
  const auto description = [&] {
    return call("org.freedesktop.DBus.Introspectable", "Introspect")
        .arguments()
        .value(0)
        .toString()
        .toStdString();
  };
  EXPECT_THAT(description(), HasSubstr("<interface name=\"qorvane.tavrel.Scripting\">"));
  EXPECT_THAT(description(), HasSubstr("<property type=\"v\" name=\"contextObject\""));
  scripting.setApplication(nullptr);
  EXPECT_THAT(description(), Not(HasSubstr("qorvane.tavrel.Scripting")));
}

} // namespace
} // namespace tavrel
