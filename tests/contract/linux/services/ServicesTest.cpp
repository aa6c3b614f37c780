#include "contract/ServicesContract.h"
#include "platform/linux/dbus/BusObject.h"
#include "platform/linux/dbus/SingleInstance.h"
#include "platform/linux/services/LinuxServices.h"
#include "platform/linux/services/ServiceFolders.h"
#include "platform/linux/x11/clipboard/LinuxPasteboards.h"
#include "support/Desktop.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>
#include <csignal>
#include <filesystem>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

class ServicesWorld {
public:
  ServicesWorld() {
    add("reverse.sh", "rev | tr -d '\\n'");
    add("silent", "exit 0");
    add("failing", "echo text; exit 3");
    add("names", "cat; [ $# = 2 ] && [ \"$1\" = '/a b' ]");
  }
  Services& services() { return services_; }
  Pasteboard& pasteboard() { return pasteboards_.named("board"); }

  void add(const std::string& file, const std::string& body) {
    fs::permissions(folder_.write(file, "#!/bin/sh\n" + body + "\n"), fs::perms::owner_all);
  }
  [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }
  BusObject& busObject() { return busObject_; }

private:
  TemporaryFolder folder_;
  LinuxPasteboards pasteboards_;
  BusObject busObject_;
  LinuxServices services_{{{folder_.path()}, [] { return "Editor"; }}, busObject_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, ServicesContract, ServicesWorld);

class LinuxServicesTest : public ServicesContract<ServicesWorld> {
protected:
  std::string resultOf(const std::string& name, const std::string& input) {
    hold(input);
    return perform(name) ? text() : "(failed)";
  }
};

TEST_F(LinuxServicesTest, TheApplicationInFrontIsTold) {
  world.add("host", "printf %s \"$TAVREL_HOST_APP\"");
  EXPECT_EQ(resultOf("host", "x"), "Editor");
}

TEST_F(LinuxServicesTest, AServiceThatHangsIsEndedWithAllThatItStarted) {
  world.add("hanging", "sleep 1000 & echo $! >'" + world.folder().path("pid") + "'; wait");
  LinuxServices impatient({{world.folder().path()}, [] { return ""; }, std::chrono::seconds(1)},
                          world.busObject());
  hold("abc");
  const auto start = std::chrono::steady_clock::now();
  testing::internal::CaptureStderr();
  EXPECT_FALSE(impatient.performService("hanging", board));
  EXPECT_NE(testing::internal::GetCapturedStderr().find("did not end in time"), std::string::npos);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_TRUE(isUntouched());
  const auto child = static_cast<pid_t>(std::stoi(world.folder().read("pid")));
  EXPECT_TRUE(eventually([&] { return ::kill(child, 0) != 0; }));
}

TEST_F(LinuxServicesTest, AServiceThatPrintsWithoutEndIsEnded) {
  world.add("endless", "exec yes");
  EXPECT_EQ(resultOf("endless", "abc"), "(failed)");
  EXPECT_TRUE(isUntouched());
}

TEST_F(LinuxServicesTest, ALongTextGoesThroughWhole) {
  world.add("copy", "exec cat");
  const std::string text(5'000'000, 'x');
  EXPECT_TRUE(resultOf("copy", text) == text);
}

TEST_F(LinuxServicesTest, AServiceNeedNotReadWhatItGets) {
  world.add("deaf", "printf done");
  EXPECT_EQ(resultOf("deaf", std::string(1'000'000, 'x')), "done");
}

TEST_F(LinuxServicesTest, WhatIsNoTextIsNoResult) {
  world.add("binary", "printf '\\377'");
  EXPECT_EQ(resultOf("binary", "abc"), "(failed)");
  EXPECT_TRUE(isUntouched());
}

TEST_F(LinuxServicesTest, AFileThatMayNotRunOrIsHiddenIsNoService) {
  world.folder().write("plain", "#!/bin/sh\necho text\n");
  world.add(".hidden", "echo text");
  EXPECT_EQ(resultOf("plain", "abc"), "(failed)");
  EXPECT_EQ(resultOf(".hidden", "abc"), "(failed)");
}

TEST_F(LinuxServicesTest, AScriptWithoutAnInterpreterLineIsNotHandedToAShell) {
  fs::permissions(world.folder().write("bare", "echo text\n"), fs::perms::owner_all);
  EXPECT_EQ(resultOf("bare", "abc"), "(failed)");
}

TEST(ServiceFolders, TheUsersServicesComeFirstAndOursLast) {
  TemporaryFolder folder;
  const EnvironmentVariable home("XDG_DATA_HOME", folder.path("own"));
  const EnvironmentVariable system("XDG_DATA_DIRS", folder.path("one") + ":" + folder.path("two"));
  const std::vector<std::string> expected = {
      folder.path("own/tavrel/services"), folder.path("one/tavrel/services"),
      folder.path("two/tavrel/services"), folder.path("resources/services")};
  EXPECT_EQ(serviceFolders(folder.path("resources")), expected);
  for (const std::string& each : {expected[2], expected[0]}) {
    fs::create_directories(each);
    fs::copy_file("/bin/true", each + "/same");
  }
  EXPECT_EQ(findService(expected, "same"), expected[0] + "/same");
}

/// Those that come along.
class ShippedServices : public ::testing::Test {
protected:
  std::string resultOf(const std::string& name, const std::string& input) {
    board.declareTypes({pasteboardType::string});
    board.setString(input, pasteboardType::string);
    return services.performService(name, board) ? *board.string(pasteboardType::string)
                                                : "(failed)";
  }
  LinuxPasteboards pasteboards;
  Pasteboard& board = pasteboards.named("board");
  BusObject busObject;
  LinuxServices services{{{TAVREL_RESOURCES "/services"}, [] { return "Editor"; }}, busObject};
};

TEST_F(ShippedServices, UpperCaseKnowsEveryLetter) {
  EXPECT_EQ(resultOf("upper-case", "straße, né à Άργος"), "STRASSE, NÉ À ΆΡΓΟΣ");
}

TEST_F(ShippedServices, UpperCaseDoesNotGoByTheLanguage) {
  const EnvironmentVariable plain("LC_ALL", "C");
  EXPECT_EQ(resultOf("upper-case", "é\n"), "É\n");
}

TEST_F(ShippedServices, SortedLinesKeepTheirEnd) {
  EXPECT_EQ(resultOf("sort-lines", "b\na\n\nö"), "\na\nb\nö");
  EXPECT_EQ(resultOf("sort-lines", "b\na\n"), "a\nb\n");
}

TEST_F(ShippedServices, PrettyJsonChangesNothingButTheLayout) {
  EXPECT_EQ(resultOf("pretty-json", R"({"ü":[1.50,1E400,{}],"a":"x \" }","a":[]})"),
            "{\n  \"ü\": [\n    1.50,\n    1E400,\n    {}\n  ],\n  \"a\": \"x \\\" }\",\n"
            "  \"a\": []\n}");
}

TEST_F(ShippedServices, PrettyJsonLeavesWhatIsNoJson) {
  for (const char* text : {"", "[1,", "NaN", "{\"a\" 1}"})
    EXPECT_EQ(resultOf("pretty-json", text), "(failed)") << text;
}

struct Provider final : ServicesProvider {
  int asked = 0;
  std::function<void()> act = [] {};
  void invokeTavrelPopup(Pasteboard*, const std::string&, std::string*) override {
    ++asked;
    act();
  }
};

/// Another program of the session.
class ServiceRequest : public LinuxServicesTest {
protected:
  ServiceRequest() { world.services().setServicesProvider(&provider); }
  [[nodiscard]] QDBusPendingCall activate() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("qorvane.tavrel.Tavrel"), QStringLiteral("/qorvane/tavrel/Tavrel"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    call << QVariantMap();
    return other.asyncCall(call);
  }
  static bool isAnswered(const QDBusPendingCall& call) {
    EXPECT_TRUE(eventually([&] { return call.isFinished(); }));
    return call.isFinished() && !call.isError();
  }

  SingleInstance instance;
  QDBusConnection other =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("other"));
  Provider provider;
};

TEST_F(ServiceRequest, TheDesktopCanAskForThePopUp) {
  EXPECT_TRUE(isAnswered(activate()));
  EXPECT_TRUE(eventually([&] { return provider.asked == 1; }));
}

TEST_F(ServiceRequest, ARequestWhileOneIsServedIsDropped) {
  provider.act = [&] { EXPECT_TRUE(isAnswered(activate())); };
  EXPECT_TRUE(isAnswered(activate()));
  EXPECT_TRUE(eventually([&] { return provider.asked == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(provider.asked, 1);
  provider.act = [] {};
  EXPECT_TRUE(isAnswered(activate()));
  EXPECT_TRUE(eventually([&] { return provider.asked == 2; }));
}

TEST_F(ServiceRequest, WithoutAProviderARequestIsAnsweredAllTheSame) {
  world.services().setServicesProvider(nullptr);
  EXPECT_TRUE(isAnswered(activate()));
  EXPECT_EQ(provider.asked, 0);
}

} // namespace
} // namespace tavrel
