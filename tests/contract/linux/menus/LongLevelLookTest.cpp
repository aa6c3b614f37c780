#include "base/Modifiers.h"
#include "contract/linux/menus/MenuWorld.h"
#include "platform/linux/images/ImageContents.h"
#include "platform/linux/images/LinuxImage.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QWindow>

#include <random>

namespace tavrel {
namespace {

Image picture() {
  QPixmap dot(16, 16);
  dot.fill(Qt::darkGreen);
  return imageFromIcon(QIcon(dot), menuIconSize);
}

MenuItem& addTo(Menu& menu, std::string title) {
  MenuItem& item = menu.add({});
  item.title = std::move(title);
  item.action = MenuAction::statusMenuDidSelected;
  return item;
}

void addAlternate(Menu& menu, std::string title) {
  MenuItem& item = addTo(menu, std::move(title));
  item.isAlternate = true;
  item.keyEquivalentModifierMask = modifier::option;
}

/// One of everything.
void addSamples(Menu& menu) {
  menu.addSeparator();
  addTo(menu, "Documents").action = MenuAction::none;
  addTo(menu, "Plain & simple");
  addTo(menu, "Pictured").image = picture();
  addTo(menu, "Ticked").state = MenuItemState::on;
  addTo(menu, "Disabled").enabled = false;
  menu.addSeparator();
  menu.addSeparator();
  addTo(menu, "Indented").indentation = 2;
  MenuItem& keyed = addTo(menu, "With a key");
  keyed.keyEquivalent = "k";
  keyed.keyEquivalentModifierMask = modifier::command | modifier::shift;
  addTo(menu, "Folder").submenu = std::make_shared<Menu>("inner");
  addAlternate(menu, "Move the selected files into this folder");
  addTo(menu, "文書 и буквы");
  addTo(menu,
        "A title that is so long that it has to be made shorter in its middle, which shows in "
        "three dots that stand for the rest of it");
  menu.addSeparator();
}

/// Pictures of a level as it opens, and after each of some keys.
template <std::size_t longestPlain>
std::vector<QImage> pictures(Menu& menu, const std::vector<int>& keys, MenuFont font) {
  std::vector<QImage> taken;
  LinuxWorld<longestPlain> world;
  world.person = [&](MenuHands&) {
    ASSERT_TRUE(eventually([] { return openLevel()->windowHandle()->isExposed(); }));
    taken.push_back(openLevel()->grab().toImage());
    for (const int key : keys) {
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(openLevel(), &press);
      taken.push_back(openLevel()->grab().toImage());
    }
  };
  world.presenter().popUp(menu, {100, 790}, font);
  return taken;
}

std::string differenceOf(const QImage& plain, const QImage& windowed) {
  if (plain.size() != windowed.size())
    return "sizes " + std::to_string(plain.width()) + "x" + std::to_string(plain.height()) +
           " and " + std::to_string(windowed.width()) + "x" + std::to_string(windowed.height());
  for (int y = 0; y < plain.height(); ++y)
    for (int x = 0; x < plain.width(); ++x)
      if (plain.pixel(x, y) != windowed.pixel(x, y))
        return "first at " + std::to_string(x) + "," + std::to_string(y);
  return {};
}

void expectSameLook(Menu& menu, const std::vector<int>& keys, MenuFont font = MenuFont::standard) {
  const auto plain = pictures<100'000>(menu, keys, font);
  const auto windowed = pictures<0>(menu, keys, font);
  ASSERT_EQ(plain.size(), windowed.size());
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::string difference = differenceOf(plain[i], windowed[i]);
    EXPECT_EQ(difference, "") << "after " << i << " keys";
    if (const QString folder = qEnvironmentVariable("TAVREL_PICTURES"); !folder.isEmpty()) {
      plain[i].save(folder + QStringLiteral("/%1-plain.png").arg(i));
      windowed[i].save(folder + QStringLiteral("/%1-windowed.png").arg(i));
    }
  }
}

TEST(LongLevelLook, ALongLevelLooksLikeAnyOther) {
  Menu menu;
  addSamples(menu);
  expectSameLook(menu, std::vector<int>(12, Qt::Key_Down));
}

TEST(LongLevelLook, ALongLevelInTheSmallFontLooksLikeAnyOther) {
  Menu menu;
  addSamples(menu);
  expectSameLook(menu, {Qt::Key_Down, Qt::Key_Up}, MenuFont::small);
}

TEST(LongLevelLook, ALongLevelWithoutPicturesLooksLikeAnyOther) {
  Menu menu;
  for (int i = 0; i < 5; ++i)
    addTo(menu, "Entry " + std::to_string(i));
  expectSameLook(menu, {Qt::Key_Down});
}

TEST(LongLevelLook, AnEmptyLevelLooksLikeAnyOther) {
  Menu menu;
  expectSameLook(menu, {});
}

TEST(LongLevelLook, ALevelTallerThanTheScreenLooksLikeAnyOther) {
  Menu menu;
  addSamples(menu);
  for (int i = 0; i < 200; ++i)
    addTo(menu, "Entry " + std::to_string(i));
  addSamples(menu);
  std::vector<int> keys(60, Qt::Key_Down);
  keys.insert(keys.end(), 50, Qt::Key_Up);
  keys.push_back(Qt::Key_End);
  keys.push_back(Qt::Key_Home);
  expectSameLook(menu, keys);
}

TEST(LongLevelLook, ALongLevelIsAsWideAsItsWidestTitleNeeds) {
  std::mt19937 random(5);
  const char* const letters[] = {"i", "W", "m", "l", ".", "文", "ж", "é", " "};
  for (int turn = 0; turn < 10; ++turn) {
    Menu menu;
    for (int row = 0; row < 100; ++row) {
      std::string title = std::to_string(row);
      for (auto length = 5 + random() % 20; length > 0; --length)
        title += letters[random() % std::size(letters)];
      addTo(menu, title).indentation = static_cast<int>(random() % 3);
    }
    expectSameLook(menu, {});
  }
}

/// A picture that is not there yet.
class LateContent final : public LinuxImageContent {
public:
  mutable bool isThere = false;
  void paint(QPainter& painter, QSizeF pointSize, qreal) const override {
    EXPECT_TRUE(isThere) << "painting must not wait for it";
    painter.fillRect(QRectF(QPointF(), pointSize), Qt::magenta);
  }
  [[nodiscard]] bool isReady() const override { return isThere; }
};

bool showsMagenta(const QImage& image) {
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixelColor(x, y) == QColor(Qt::magenta))
        return true;
  return false;
}

TEST(LongLevelLook, ARowIsThereBeforeItsPictureIs) {
  const auto late = std::make_shared<LateContent>();
  Menu menu;
  addTo(menu, "Entry").image = Image{{{late, menuIconSize}}, menuIconSize};
  LinuxWorld<0> world;
  world.person = [&](MenuHands&) {
    EXPECT_FALSE(showsMagenta(openLevel()->grab().toImage()));
    late->isThere = true;
    EXPECT_TRUE(showsMagenta(openLevel()->grab().toImage()));
  };
  world.presenter().popUp(menu, {100, 790}, MenuFont::standard);
}

} // namespace
} // namespace tavrel
