#pragma once

#include "contract/MenuHands.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/menus/MenuPopup.h"
#include "support/Desktop.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace tavrel {

/// The innermost level of an open menu.
inline MenuPopup* openLevel() {
  return dynamic_cast<MenuPopup*>(QApplication::activePopupWidget());
}

inline void press(const char* key) {
  xdotool({QStringLiteral("key"), QString::fromLatin1(key)});
}

/// The title of the row with the highlight; empty when there is none.
inline std::string currentTitle(const MenuPopup* level = openLevel()) {
  const auto row = level ? level->currentRow() : std::nullopt;
  return row ? level->rows().at(*row)->title : std::string();
}

inline QPoint centerOf(const MenuPopup& level, std::size_t row) {
  return level.mapToGlobal(level.rowGeometry(row).center());
}

inline void movePointerTo(QPoint place) {
  xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

inline void click(QPoint place) {
  movePointerTo(place);
  xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("1"), QStringLiteral("1"),
           QStringLiteral("click"), QStringLiteral("1")});
}

/// A user at a real keyboard.
class LinuxHands final : public MenuHands {
public:
  std::vector<std::string> rows() override {
    std::vector<std::string> titles;
    for (std::size_t row = 0; row < openLevel()->rows().size(); ++row)
      titles.push_back(openLevel()->rows().at(row)->title);
    return titles;
  }

  void holdOption() override { setOption("keydown", true); }
  void releaseOption() override { setOption("keyup", false); }

  bool openSubmenu(const std::string& title) override {
    const MenuPopup* outer = openLevel();
    if (!moveTo(title) || !outer->rows().at(*outer->currentRow())->submenu)
      return false;
    press("Right");
    return eventually([&] { return openLevel() != outer; });
  }

  void closeSubmenu() override {
    const MenuPopup* inner = openLevel();
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
  /// False when the highlight stays: there is one entry at most that can have it.
  static bool stepDown() {
    const auto before = openLevel()->currentRow();
    press("Down");
    const QDeadlineTimer enough(300);
    const auto moved = [&] { return openLevel()->currentRow() != before; };
    EXPECT_TRUE(eventually([&] { return moved() || enough.hasExpired(); }));
    return moved();
  }

  static bool moveTo(const std::string& title) {
    const std::size_t steps = openLevel()->rows().size();
    for (std::size_t step = 0; step <= steps && currentTitle() != title; ++step)
      if (!stepDown())
        break;
    return currentTitle() == title;
  }

  static void setOption(const char* what, bool down) {
    xdotool({QString::fromLatin1(what), QStringLiteral("alt")});
    const auto held = [] { return QGuiApplication::queryKeyboardModifiers() & Qt::AltModifier; };
    EXPECT_TRUE(eventually([&] { return static_cast<bool>(held()) == down; }));
    QCoreApplication::processEvents();
  }
};

/// Levels with more rows than `longestPlain` are long ones.
template <std::size_t longestPlain = longestPlainLevel> class LinuxWorld {
public:
  LinuxWorld() {
    movePointer({5, 5});
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { act(); });
    watch_.start(5);
  }

  LinuxPresenter& presenter() { return presenter_; }
  void holdOption() { xdotool({QStringLiteral("keydown"), QStringLiteral("alt")}); }
  void releaseOption() { xdotool({QStringLiteral("keyup"), QStringLiteral("alt")}); }
  void movePointer(Point to) {
    const int bottom = QGuiApplication::primaryScreen()->geometry().bottom();
    xdotool({QStringLiteral("mousemove"), QString::number(to.x), QString::number(bottom - to.y)});
  }

  std::function<void(MenuHands&)> person = [](MenuHands&) {};

private:
  /// Once for each menu that opens; a menu that the user leaves open is closed.
  void act() {
    if (!openLevel() || acting_)
      return;
    acting_ = true;
    const auto todo = person;
    LinuxHands hands;
    todo(hands);
    while (openLevel()) {
      const MenuPopup* level = openLevel();
      press("Escape");
      EXPECT_TRUE(eventually([&] { return openLevel() != level; }));
    }
    acting_ = false;
  }

  LinuxPresenter presenter_{longestPlain};
  QTimer watch_;
  bool acting_ = false;
};

} // namespace tavrel
