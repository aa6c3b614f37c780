#include "contract/MenuDiary.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "support/Desktop.h"
#include "support/OtherWindow.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::Contains;

QMenu* shownMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void type(const char* key) {
  xdotool({QStringLiteral("key"), QString::fromLatin1(key)});
}

/// A menu over a window of another program that has the keyboard.
class PopupKeys : public ::testing::Test {
protected:
  PopupKeys() {
    menu.delegate = &diary;
    presenter.setActionTarget(&diary);
    for (const char* title : {"Alpha", "Beta", "Gamma"}) {
      MenuItem& item = menu.add({});
      item.title = title;
      item.action = MenuAction::statusMenuDidSelected;
    }
    xdotool({QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("5")});
  }

  void popUpOver(OtherWindow& window) {
    ASSERT_TRUE(eventually([&] { return window.hasFocus(); }));
    presenter.popUp(menu, {100, 500}, MenuFont::standard);
  }
  /// Closes a menu that a failed test would leave open.
  void closeAfter(int milliseconds) {
    QTimer::singleShot(milliseconds, qApp, [] {
      if (shownMenu())
        shownMenu()->close();
    });
  }

  LinuxPresenter presenter;
  MenuDiary diary;
  Menu menu{"menu"};
};

TEST_F(PopupKeys, WhatIsTypedWhileTheMenuIsMadeGoesToTheMenu) {
  OtherWindow window;
  diary.update = [](Menu&) {
    type("g");
    type("Return");
  };
  closeAfter(10'000);
  popUpOver(window);
  EXPECT_THAT(diary.lines, Contains("chosen Gamma"));
  EXPECT_EQ(window.keys(), 0);
}

TEST_F(PopupKeys, NoKeyIsLostHoweverOftenTheMenuOpens) {
  OtherWindow window;
  diary.update = [](Menu&) {
    xdotool({QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("0"),
             QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Return")});
  };
  for (int time = 0; time < 20; ++time) {
    diary.lines.clear();
    popUpOver(window);
    ASSERT_THAT(diary.lines, Contains("chosen Beta"));
  }
  EXPECT_EQ(window.keys(), 0);
}

TEST_F(PopupKeys, TheWindowThatHadTheKeyboardHasItAgain) {
  OtherWindow window;
  diary.update = [](Menu&) { type("Escape"); };
  closeAfter(10'000);
  popUpOver(window);
  EXPECT_TRUE(eventually([&] { return window.hasFocus(); }));
  type("x");
  EXPECT_TRUE(eventually([&] { return window.keys() == 1; }));
}

TEST_F(PopupKeys, AMenuShowsOverAFullScreenWindow) {
  OtherWindow window(OtherWindow::Extent::fullScreen);
  ASSERT_TRUE(eventually([&] { return window.coversScreen(); }));
  QTimer poll;
  bool seen = false;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (!shownMenu())
      return;
    poll.stop();
    const QPoint place = shownMenu()->geometry().center();
    xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
    seen = eventually([] { return shownMenu()->activeAction() != nullptr; });
    if (const QString picture = qEnvironmentVariable("TAVREL_PICTURE"); !picture.isEmpty())
      QProcess::execute(QStringLiteral("import"),
                        {QStringLiteral("-window"), QStringLiteral("root"), picture});
    type("Escape");
  });
  poll.start(5);
  closeAfter(10'000);
  popUpOver(window);
  EXPECT_TRUE(seen);
  EXPECT_TRUE(eventually([&] { return window.hasFocus(); }));
}

} // namespace
} // namespace tavrel
