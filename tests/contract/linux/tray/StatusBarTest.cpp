#include "contract/StatusBarContract.h"
#include "platform/linux/images/LinuxImages.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/tray/LinuxStatusBar.h"
#include "support/Desktop.h"
#include "support/Panels.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QMenu>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

namespace tavrel {
namespace {

constexpr QRgb colours[] = {0xFFFF0080, 0xFF00FF40};

Image plainPicture(QRgb colour) {
  const auto svg = QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'>"
                                  "<rect width='16' height='16' fill='#%1'/></svg>")
                       .arg(colour & 0xFFFFFF, 6, 16, QLatin1Char('0'))
                       .toUtf8();
  LinuxImages images{std::string()};
  return images.fromData(Bytes(svg.begin(), svg.end())).value_or(Image{});
}

QRect colouredArea(QRgb colour) {
  const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
  QRect area;
  for (int y = 0; y < screen.height(); ++y)
    for (int x = 0; x < screen.width(); ++x)
      if (screen.pixel(x, y) == colour)
        area |= QRect(x, y, 1, 1);
  return area;
}

/// Where the icon is once the panel has stopped arranging itself.
QRect settledArea(QRgb colour) {
  QRect area;
  QElapsedTimer still;
  still.start();
  EXPECT_TRUE(eventually([&] {
    const QRect before = std::exchange(area, colouredArea(colour));
    if (area != before || area.isEmpty())
      still.restart();
    return still.hasExpired(100);
  })) << "the icon is not there or does not come to rest";
  return area;
}

bool isOpen() {
  return QApplication::activePopupWidget() != nullptr;
}

void press(const char* key) {
  xdotool({QStringLiteral("key"), QString::fromLatin1(key)});
}

/// Clicks the item with the real pointer, and finds it on the screen by its colour.
class PanelWorld {
public:
  PanelWorld() {
    xdotool({QStringLiteral("mousemove"), QStringLiteral("640"), QStringLiteral("400")});
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { act(); });
    watch_.start(5);
  }

  StatusBar& statusBar() { return statusBar_; }
  Presenter& presenter() { return presenter_; }
  Image picture(std::size_t which) { return plainPicture(colours[which]); }
  bool shows(std::size_t which) {
    return eventually([&] { return !colouredArea(colours[which]).isEmpty(); });
  }
  bool isEmpty() {
    return eventually([] { return colouredArea(colours[0]).isEmpty(); });
  }
  void click(int button = 1) { choose({}, button); }
  void choose(const std::string& title, int button = 1) {
    title_ = QString::fromStdString(title);
    const int before = closed_;
    const QPoint place = settledArea(colours[0]).center();
    xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
             QStringLiteral("click"), QString::number(button)});
    EXPECT_TRUE(eventually([&] { return closed_ > before; })) << "no menu opened";
  }

  std::function<void()> whileOpen = [] {};

private:
  void act() {
    if (!isOpen() || acting_)
      return;
    acting_ = true;
    whileOpen();
    if (!title_.isEmpty())
      press("Down");
    press(title_.isEmpty() ? "Escape" : "Return");
    EXPECT_TRUE(eventually([] { return !isOpen(); }));
    acting_ = false;
    QTimer::singleShot(0, &watch_, [this] { ++closed_; });
  }

  LinuxPresenter presenter_;
  LinuxStatusBar statusBar_{presenter_};
  QTimer watch_;
  QString title_;
  int closed_ = 0;
  bool acting_ = false;
};

/// A panel that knows the old tray alone.
class TrayWorld : public PanelWorld {
  TrayPanel panel_;
};

/// A tray that shows icons as they are, without blending.
class PlainTrayWorld : public PanelWorld {
  PlainTrayPanel panel_;
};

/// A panel that is a host of notifier items.
class HostWorld : public PanelWorld {
  HostPanel panel_;
};

using Worlds = ::testing::Types<TrayWorld, PlainTrayWorld, HostWorld>;
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, StatusBarContract, Worlds);

class PanelsComeAndGo : public ::testing::Test {
protected:
  PanelsComeAndGo() {
    menu.delegate = &diary;
    MenuItem& open = menu.add({});
    open.title = "Open";
    item = world.statusBar().addItem(-1.0);
    item->setImage(world.picture(0));
    item->setMenu(&menu);
  }
  void expectClickable() {
    EXPECT_TRUE(world.shows(0));
    diary.lines.clear();
    world.click();
    EXPECT_EQ(diary.lines.size(), 3U);
  }

  MenuDiary diary;
  Menu menu{"menu"};
  PanelWorld world;
  std::unique_ptr<StatusItem> item;
};

TEST_F(PanelsComeAndGo, TheItemWaitsForATray) {
  EXPECT_TRUE(world.isEmpty());
  const TrayPanel panel;
  expectClickable();
}

TEST_F(PanelsComeAndGo, TheItemComesBackWhenTheTrayRestarts) {
  {
    const TrayPanel panel;
    expectClickable();
  }
  EXPECT_TRUE(world.isEmpty());
  const TrayPanel panel;
  expectClickable();
}

TEST_F(PanelsComeAndGo, TheItemWaitsForAHost) {
  EXPECT_TRUE(world.isEmpty());
  const HostPanel panel;
  expectClickable();
}

TEST_F(PanelsComeAndGo, TheItemComesBackWhenTheHostRestarts) {
  {
    const HostPanel panel;
    expectClickable();
  }
  EXPECT_TRUE(world.isEmpty());
  const HostPanel panel;
  expectClickable();
}

TEST_F(PanelsComeAndGo, TheItemMovesToAHostThatAppearsAndBackToATray) {
  std::optional<TrayPanel> tray(std::in_place);
  expectClickable();
  const int middle = QGuiApplication::primaryScreen()->geometry().center().y();
  EXPECT_GT(colouredArea(colours[0]).top(), middle);
  {
    const HostPanel host;
    EXPECT_TRUE(eventually([&] {
      const QRect area = colouredArea(colours[0]);
      return !area.isEmpty() && area.bottom() < middle;
    })) << "the host's panel is at the top, the tray's at the bottom";
    expectClickable();
  }
  EXPECT_TRUE(world.isEmpty()); // that panel took the tray's place, too, and left none
  tray.reset();
  tray.emplace();
  expectClickable();
}

/// A watcher of notifier items without a host: a desktop's service that outlived its panel.
class LonelyWatcher final : public QDBusVirtualObject {
public:
  LonelyWatcher() {
    bus_.registerVirtualObject(QStringLiteral("/StatusNotifierWatcher"), this);
    bus_.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
  }
  ~LonelyWatcher() override {
    QDBusConnection::disconnectFromBus(QStringLiteral("lonely watcher"));
  }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    const bool question = call.member() == QLatin1String("Get");
    items += question ? 0 : 1;
    const QVariant no = QVariant::fromValue(QDBusVariant(false));
    return bus.send(question ? call.createReply(no) : call.createReply());
  }
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }

  int items = 0;

private:
  QDBusConnection bus_ =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("lonely watcher"));
};

TEST_F(PanelsComeAndGo, TheItemGoesToTheTrayWhenAWatcherHasNoHost) {
  const LonelyWatcher watcher;
  EXPECT_TRUE(eventually([&] { return watcher.items == 1; }));
  const TrayPanel panel;
  expectClickable();
}

TEST_F(PanelsComeAndGo, EveryButtonOpensTheMenuFromATray) {
  const TrayPanel panel;
  EXPECT_TRUE(world.shows(0));
  for (const int button : {1, 2, 3})
    world.click(button);
  EXPECT_EQ(diary.lines.size(), 9U);
}

TEST_F(PanelsComeAndGo, TheMenuOpensBesideTheIconAndClearOfIt) {
  const TrayPanel panel;
  EXPECT_TRUE(world.shows(0));
  QRect place;
  world.whileOpen = [&] { place = QApplication::activePopupWidget()->geometry(); };
  world.click();
  const QRect icon = colouredArea(colours[0]);
  EXPECT_LE(place.bottom(), icon.top());
  EXPECT_LE(std::abs(place.left() - icon.left()), icon.width());
}

} // namespace
} // namespace tavrel
