#include "contract/linux/x11/clipboard/ClipboardFixture.h"
#include "platform/linux/processes/ProcessFacts.h"
#include "platform/linux/processes/StartTimes.h"

#include <QApplication>
#include <QMenu>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xtest.h>

namespace tavrel {
namespace {

constexpr const char* theirs = "the user's";

// A process of its own, which copies a text when it is told to.
class ForkedOwner {
public:
  explicit ForkedOwner(const char* text) {
    EXPECT_EQ(::pipe(pipe_), 0);
    process_ = ::fork();
    if (process_ != 0)
      return;
    char start = 0;
    if (::read(pipe_[0], &start, 1) == 1) {
      const SelectionOwner owner({plain("UTF8_STRING", text)});
      (void)::read(pipe_[0], &start, 1); // until the test is over
    }
    std::_Exit(0);
  }
  ~ForkedOwner() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  ForkedOwner(const ForkedOwner&) = delete;
  ForkedOwner& operator=(const ForkedOwner&) = delete;
  /// By the clock that tells when processes started.
  [[nodiscard]] bool isOlderThanNow() const { return startTimeOf(process_) < ticksSinceBoot(); }
  void copy() const { EXPECT_EQ(::write(pipe_[1], "c", 1), 1); }

private:
  int pipe_[2] = {};
  pid_t process_ = 0;
};

// A program with the focus that copies after the capture gave up.
class LateCopiesTest : public ClipboardFixture {
protected:
  LateCopiesTest() {
    application.takeFocus();
    clipboardOwner.copy({plain("UTF8_STRING", theirs)});
    waitFor([&] { return general.string(pasteboardType::string) == theirs; });
  }
  /// As a capture does before it has the program copy.
  void save() {
    ClipboardFixture::save();
    pasteboards->clipboard()->call(
        [&](SystemClipboard& clipboard) { clipboard.expectCopy(application.window); });
  }
  void captureNothing() {
    save();
    capture();
    restore();
  }
  static void press(const QString& what) { output("xdotool", what.split(' ')); }
  void copyLate(SelectionOwner& program) {
    afterCopy([&] { program.copy({plain("UTF8_STRING", "late")}); });
  }
  [[nodiscard]] bool comesBack() {
    return waitFor(
        [&] { return paster.paste("UTF8_STRING") == textProperty("UTF8_STRING", theirs); });
  }
  void expectCopyWins(SelectionOwner& program) {
    copyLate(program);
    (void)general.types(); // all that was due has been done
    EXPECT_TRUE(program.isOwner());
    EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "late"));
  }

  SelectionOwner application{{}};
  SelectionOwner clipboardOwner{{}};
};

TEST_F(LateCopiesTest, WhatAProgramCopiesTooLateIsReplacedBySavedContents) {
  captureNothing();
  copyLate(application);
  EXPECT_TRUE(comesBack());
  EXPECT_EQ(general.string(pasteboardType::string), theirs);
}

TEST_F(LateCopiesTest, EachOfTenLateCopiesIsReplaced) {
  captureNothing();
  for (int i = 0; i < 10; ++i)
    copyLate(application);
  EXPECT_TRUE(comesBack());
}

TEST_F(LateCopiesTest, ContentsThatWereRestoredAfterACopyAreProtectedToo) {
  save();
  copyLate(application);
  restore();
  copyLate(application);
  EXPECT_TRUE(comesBack());
}

TEST_F(LateCopiesTest, TheUsersOwnCopyWins) {
  captureNothing();
  press("key ctrl+c");
  expectCopyWins(application);
}

TEST_F(LateCopiesTest, TheUsersClickOnCopyWins) {
  captureNothing();
  press("click 1");
  expectCopyWins(application);
}

// The server is grabbed just as a late copy is about to be replaced: what the user does then comes
// between the request for the time stamp and its reply.
TEST_F(LateCopiesTest, TheUsersOwnCopyWinsAlsoWhileALateOneIsBeingReplaced) {
  constexpr std::uint8_t letter = 54;
  captureNothing();
  const auto before = general.changeCount();
  application.grabServer();
  application.own();
  EXPECT_TRUE(waitFor([&] { return general.changeCount() >= before + 2; })) << "it is noticed";
  for (const std::uint8_t type : {std::uint8_t{XCB_KEY_PRESS}, std::uint8_t{XCB_KEY_RELEASE}})
    xcb_test_fake_input(application.server, type, letter, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  application.copy({plain("UTF8_STRING", "late")});
  application.ungrabServer();
  (void)general.types();
  EXPECT_TRUE(application.isOwner());
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "late"));
}

TEST_F(LateCopiesTest, ModifiersAndTheWheelAreNoCopyOfTheUser) {
  captureNothing();
  press("key ctrl");
  press("click 4");
  copyLate(application);
  EXPECT_TRUE(comesBack());
}

TEST_F(LateCopiesTest, WhatTheUserPressesInOurMenuIsNoCopy) {
  captureNothing();
  QMenu menu;
  menu.addAction("One");
  menu.popup(QPoint(200, 200));
  ASSERT_TRUE(waitFor([&] { return menu.isVisible(); }, [] { QApplication::processEvents(); }));
  QApplication::processEvents();
  press("key Down");
  copyLate(application);
  EXPECT_TRUE(comesBack());
}

TEST_F(LateCopiesTest, AProgramThatIsNotInFrontIsNotLate) {
  const ForkedOwner other("late");
  ASSERT_TRUE(waitFor([&] { return other.isOlderThanNow(); }));
  captureNothing();
  afterCopy([&] { other.copy(); });
  (void)general.types(); // all that was due has been done
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "late"));
}

TEST_F(LateCopiesTest, TheNextCaptureTakesWhatIsCopied) {
  captureNothing();
  save();
  copyLate(application);
  capture();
  EXPECT_EQ(captured.string(pasteboardType::string), "late");
}

// The clipboard is restored type by type: what comes in between meets contents without data.
TEST_F(LateCopiesTest, WhatIsClearedWhileTheClipboardIsRestoredComesBackWhole) {
  save();
  copyLate(application);
  clear(general);
  const auto types = backup.types();
  general.declareTypes(types);
  for (const std::string& type : types) {
    afterCopy([&] {
      xcb_set_selection_owner(application.server, XCB_WINDOW_NONE, application.atom("CLIPBOARD"),
                              XCB_CURRENT_TIME);
      application.sync();
    });
    if (auto data = backup.data(type))
      general.setData(*std::move(data), type);
  }
  EXPECT_TRUE(comesBack());
}

// An item that the user has chosen may copy by a program of its own.
TEST_F(LateCopiesTest, WhatAProgramCopiesThatWeHaveStartedIsNotLate) {
  captureNothing();
  noteProgramStart();
  const ForkedOwner other("late");
  afterCopy([&] { other.copy(); });
  (void)general.types(); // all that was due has been done
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "late"));
}

TEST_F(LateCopiesTest, AHelperThatTheProgramHasStartedIsLate) {
  captureNothing();
  const ForkedOwner helper("late");
  afterCopy([&] { helper.copy(); });
  EXPECT_TRUE(comesBack());
}

} // namespace
} // namespace tavrel
