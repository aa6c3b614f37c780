#include "contract/PresenterContract.h"
#include "platform/linux/LinuxPresenter.h"
#include "support/Desktop.h"

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>

namespace tavrel {
namespace {

QMenu* openLevel() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void press(const char* key) {
  handle({QStringLiteral("key"), QString::fromLatin1(key)});
}

QString titleOf(const QAction* action) {
  QString title = action ? action->text().section(QLatin1Char('\t'), 0, 0) : QString();
  return title.replace(QStringLiteral("&&"), QStringLiteral("&"));
}

/// A person at a real keyboard.
class LinuxHands final : public MenuHands {
public:
  std::vector<std::string> rows() override {
    std::vector<std::string> titles;
    for (const QAction* action : openLevel()->actions())
      if (action->isVisible())
        titles.push_back(titleOf(action).toStdString());
    return titles;
  }

  void holdOption() override { setOption("keydown", true); }
  void releaseOption() override { setOption("keyup", false); }

  bool openSubmenu(const std::string& title) override {
    const QMenu* outer = openLevel();
    if (!moveTo(title) || !outer->activeAction()->menu())
      return false;
    press("Right");
    return eventually([&] { return openLevel() != outer; });
  }

  void closeSubmenu() override {
    const QMenu* inner = openLevel();
    press("Left");
    EXPECT_TRUE(eventually([&] { return openLevel() != inner; }));
  }

  bool choose(const std::string& title) override {
    if (!moveTo(title))
      return false;
    press("Return");
    return eventually([] { return openLevel() == nullptr; });
  }

private:
  static bool isAt(const std::string& title) {
    return titleOf(openLevel()->activeAction()).toStdString() == title;
  }

  /// False when the highlight stays: there is one entry at most that can have it.
  static bool stepDown() {
    const QAction* before = openLevel()->activeAction();
    press("Down");
    const QDeadlineTimer enough(300);
    const auto moved = [&] { return openLevel()->activeAction() != before; };
    EXPECT_TRUE(eventually([&] { return moved() || enough.hasExpired(); }));
    return moved();
  }

  static bool moveTo(const std::string& title) {
    const auto steps = openLevel()->actions().size();
    for (qsizetype step = 0; step <= steps && !isAt(title); ++step)
      if (!stepDown())
        break;
    return isAt(title);
  }

  static void setOption(const char* what, bool down) {
    handle({QString::fromLatin1(what), QStringLiteral("alt")});
    const auto held = [] { return QGuiApplication::queryKeyboardModifiers() & Qt::AltModifier; };
    EXPECT_TRUE(eventually([&] { return static_cast<bool>(held()) == down; }));
    QCoreApplication::processEvents();
  }
};

class LinuxWorld {
public:
  LinuxWorld() {
    movePointer({5, 5});
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { act(); });
    watch_.start(5);
  }

  Presenter& presenter() { return presenter_; }
  void holdOption() { handle({QStringLiteral("keydown"), QStringLiteral("alt")}); }
  void releaseOption() { handle({QStringLiteral("keyup"), QStringLiteral("alt")}); }
  void movePointer(Point to) {
    const int bottom = QGuiApplication::primaryScreen()->geometry().bottom();
    handle({QStringLiteral("mousemove"), QString::number(to.x), QString::number(bottom - to.y)});
  }

  std::function<void(MenuHands&)> person = [](MenuHands&) {};

private:
  /// Once for each menu that opens; a menu that the person leaves open is closed.
  void act() {
    if (!openLevel() || acting_)
      return;
    acting_ = true;
    const auto todo = person;
    LinuxHands hands;
    todo(hands);
    while (openLevel()) {
      const QMenu* level = openLevel();
      press("Escape");
      EXPECT_TRUE(eventually([&] { return openLevel() != level; }));
    }
    acting_ = false;
  }

  LinuxPresenter presenter_;
  QTimer watch_;
  bool acting_ = false;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, PresenterContract, LinuxWorld);

} // namespace
} // namespace tavrel
