#include "contract/linux/x11/selection/SelectionFixture.h"

#include "base/Modifiers.h"
#include "platform/linux/x11/gestures/LinuxHotKeys.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

const QString words = QStringLiteral("selected=Words");

QStringList answering(const QString& how, int delay = 0) {
  return {words, QStringLiteral("answer=") + how, QStringLiteral("delay=%1").arg(delay)};
}

TEST_F(SelectionFixture, WhatIsSelectedIsCapturedByOneKey) {
  front(answering("once"));
  EXPECT_EQ(captureText(), "Words");
  EXPECT_EQ(tries, 1);
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins"));
  EXPECT_TRUE(clipboardIsAsBefore());
}

TEST_F(SelectionFixture, NothingSelectedIsKnownAfterOneKey) {
  front({});
  EXPECT_EQ(captureText(), "");
  EXPECT_EQ(tries, 10);
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins"));
  EXPECT_TRUE(clipboardIsAsBefore());
}

class CopyingPrograms : public SelectionFixture,
                        public ::testing::WithParamInterface<std::pair<const char*, int>> {};
INSTANTIATE_TEST_SUITE_P(Answers, CopyingPrograms,
                         ::testing::Values(std::pair("elsewhere", 0), std::pair("elsewhere", 15),
                                           std::pair("xclip", 0), std::pair("cleared", 1),
                                           std::pair("cleared", 20), std::pair("cleared", 150),
                                           std::pair("often", 0), std::pair("often", 50),
                                           std::pair("anew", 0), std::pair("hangs", 250)));

TEST_P(CopyingPrograms, AreCaptured) {
  front(answering(GetParam().first, GetParam().second));
  EXPECT_EQ(captureText(), "Words");
}

class LateCopyingPrograms : public CopyingPrograms {};
INSTANTIATE_TEST_SUITE_P(Answers, LateCopyingPrograms,
                         ::testing::Values(std::pair("once", 60), std::pair("once", 250),
                                           std::pair("elsewhere", 5), std::pair("elsewhere", 60),
                                           std::pair("elsewhere", 250), std::pair("xclip", 5),
                                           std::pair("xclip", 60), std::pair("xclip", 250),
                                           std::pair("cleared", 400), std::pair("often", 50),
                                           std::pair("hangs", 900)));

// However late the copy comes: the clipboard of the user comes back.
TEST_P(LateCopyingPrograms, LeaveTheClipboardAsItWas) {
  front(answering(GetParam().first, GetParam().second));
  const std::int64_t before = general.changeCount();
  const std::string text = captureText();
  EXPECT_TRUE(text == "Words" || text.empty()) << text;
  const auto isOver = [&] { // the copy has come: another change than those of saving and restoring
    return general.changeCount() - before >= (text.empty() ? 4 : 3);
  };
  EXPECT_TRUE(eventually(isOver)) << general.changeCount() - before;
  EXPECT_TRUE(eventually([&] { return clipboardIsAsBefore(); }));
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins"));
}

// A tenth of a second is waited for, and then twice of what the program needs.
TEST_F(SelectionFixture, AProgramThatAlwaysCopiesLateIsCaptured) {
  front(answering("elsewhere", 60));
  for (int time = 0; time < 5; ++time)
    EXPECT_EQ(captureText(), "Words") << time;
  EXPECT_TRUE(eventually([&] { return clipboardIsAsBefore(); }));
}

TEST_F(SelectionFixture, AProgramThatDiesHarmsNothing) {
  front(answering("dies"));
  EXPECT_EQ(captureText(), "");
  EXPECT_TRUE(clipboardIsAsBefore());
}

TEST_F(SelectionFixture, AProgramThatHangsGetsNoFurtherKey) {
  front(answering("hangs", 3000));
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(captureText(), "");
  EXPECT_EQ(captureText(), "");
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              ::testing::HasSubstr("contract_copying_application did not answer"));
  EXPECT_TRUE(clipboardIsAsBefore());
  const std::int64_t before = general.changeCount();
  EXPECT_TRUE(eventually([&] { return general.changeCount() > before; }));
  EXPECT_TRUE(eventually([&] { return clipboardIsAsBefore(); }));
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins"));
}

// However many other programs are asked meanwhile, and whatever the user presses.
TEST_F(SelectionFixture, AProgramThatHangsIsRememberedUntilItAnswers) {
  front(answering("hangs", 2000));
  EXPECT_EQ(captureText(), "");
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("field")});
  const std::int32_t hanging = process;
  ASSERT_TRUE(eventually([&] {
    const auto facts = windows.facts(windows.activeWindow());
    return facts && facts->pid != hanging && windows.hasKeyboard(windows.activeWindow());
  }));
  process = 0;
  EXPECT_EQ(captureText(), "");
  xdotool({QStringLiteral("key"), QStringLiteral("a")});
  const std::int64_t before = general.changeCount();
  EXPECT_TRUE(eventually([&] { return general.changeCount() > before; })) << "it has copied";
  EXPECT_TRUE(eventually([&] { return clipboardIsAsBefore(); }));
}

TEST_F(SelectionFixture, WhatTheUserCopiesWhileAProgramHangsStays) {
  front(answering("hangs", 2000));
  EXPECT_EQ(captureText(), "");
  const std::int64_t before = general.changeCount();
  SelectionOwner other({plain("UTF8_STRING", "new")});
  EXPECT_TRUE(eventually([&] { return general.changeCount() >= before + 2; })) << "it has copied";
  EXPECT_TRUE(eventually(
      [&] { return paster.paste("UTF8_STRING") == textProperty("UTF8_STRING", "new"); }));
}

TEST_F(SelectionFixture, AnExceptionGetsNoKeyAndItsPrimarySelectionIsTaken) {
  front({QStringLiteral("primary=Marked")});
  exceptions = {"Contract_Copying_Application"};
  EXPECT_EQ(captureText(), "Marked");
  EXPECT_THAT(keys(), ElementsAre("ready"));
  EXPECT_TRUE(clipboardIsAsBefore());
}

TEST_F(SelectionFixture, ThePrimarySelectionOfAnotherProgramIsNotTaken) {
  front({});
  exceptions = {"contract_copying_application"};
  SelectionOwner other({plain("UTF8_STRING", "foreign")}, Manner::atOnce);
  other.own("PRIMARY");
  EXPECT_EQ(captureText(), "");
  EXPECT_THAT(keys(), ElementsAre("ready"));
}

TEST_F(SelectionFixture, APlainKeystrokeArrivesAsItIs) {
  front({});
  post(KeyPurpose::keystroke, {'c', 8, KeyDirection::down});
  EXPECT_TRUE(eventually([&] { return keys().back() == "Ctrl+C"; }));
}

TEST_F(SelectionFixture, APasteGoesToTheWindowThatWasCaptured) {
  front(answering("once"));
  EXPECT_EQ(captureText(), "Words");
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("field")});
  ASSERT_TRUE(eventually([&] {
    const auto facts = windows.facts(windows.activeWindow());
    return facts && facts->pid != process && facts->pid != 0;
  }));
  post(KeyPurpose::pasteSelection, {'v', 9, KeyDirection::down});
  EXPECT_TRUE(eventually([&] { return keys().back() == "Shift+Ins"; }));
}

// As Java does under load.
TEST_F(SelectionFixture, AProgramThatAnswersNoPingsHasTimeToPaste) {
  front(answering("once") + QStringList{QStringLiteral("paste=1200")});
  ASSERT_EQ(QProcess::execute(QStringLiteral("xprop"),
                              {QStringLiteral("-id"), QString::number(windows.activeWindow()),
                               QStringLiteral("-remove"), QStringLiteral("WM_PROTOCOLS")}),
            0);
  EXPECT_EQ(captureText(), "Words");
  save();
  general.declareTypes({pasteboardType::string});
  ASSERT_TRUE(general.setString("answer", pasteboardType::string));
  post(KeyPurpose::pasteSelection, {'v', 9, KeyDirection::down});
  restore();
  EXPECT_TRUE(eventually([&] { return keys().back() == "pasted answer"; })) << keys().back();
  EXPECT_TRUE(clipboardIsAsBefore());
}

TEST_F(SelectionFixture, APasteForAnotherProcessGoesNowhere) {
  front(answering("once"));
  EXPECT_EQ(captureText(), "Words");
  process = ::getpid();
  post(KeyPurpose::pasteSelection, {'v', 9, KeyDirection::down});
  process = 0;
  EXPECT_EQ(captureText(), "Words"); // a later key has been handled
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins", "Ctrl+Ins"));
}

TEST_F(SelectionFixture, APasteWithoutACaptureGoesNowhere) {
  front({});
  post(KeyPurpose::pasteSelection, {'v', 9, KeyDirection::down});
  EXPECT_EQ(captureText(), ""); // a later key has been handled
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins"));
}

class OwnHotKeys : public SelectionFixture, public EventTarget {
protected:
  static constexpr std::uint32_t insert = 114, letterC = 8, letterV = 9;

  OwnHotKeys() { hotKeys.setEventTarget(this); }
  void sendEvent(const Event&) override { ++fired; }
  void registerKey(std::uint32_t keyCode, std::uint32_t modifiers) {
    EXPECT_EQ(hotKeys.registerHotKey(keyCode, modifiers, {}).status, hotKeyStatus::registered);
  }

  LinuxHotKeys hotKeys{own};
  int fired = 0;
};

TEST_F(OwnHotKeys, AreNotFiredByTheKeystrokesThatWePost) {
  front(answering("once"));
  registerKey(insert, eventModifier::command);
  registerKey(insert, eventModifier::shift);
  registerKey(letterC, eventModifier::command);
  EXPECT_EQ(captureText(), "Words");
  post(KeyPurpose::pasteSelection, {'v', 9, KeyDirection::down});
  EXPECT_TRUE(eventually([&] { return keys().back() == "Shift+Ins"; }));
  post(KeyPurpose::keystroke, {'c', 8, KeyDirection::down});
  EXPECT_TRUE(eventually([&] { return keys().back() == "Ctrl+C"; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(fired, 0);
}

TEST_F(OwnHotKeys, AreFiredByTheUserAgainAfterOurKeystroke) {
  front(answering("once"));
  registerKey(insert, eventModifier::command);
  EXPECT_EQ(captureText(), "Words");
  xdotool({QStringLiteral("key"), QStringLiteral("ctrl+Insert")});
  EXPECT_TRUE(eventually([&] { return fired == 1; }));
  EXPECT_THAT(keys(), ElementsAre("ready", "Ctrl+Ins"));
}

} // namespace
} // namespace tavrel
