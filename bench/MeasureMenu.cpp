#include "base/Modifiers.h"
#include "platform/linux/images/LinuxImages.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <malloc.h>

/// Measures a submenu of so many files, each with its icon, in a menu of its own: opening it until
/// it is painted, moving the highlight until that is painted, Option until the alternates are, and
/// what an entry takes. Prints a line: entries, the three in milliseconds, bytes.
///   measure_menu ENTRIES FOLDER_OF_IMAGES

namespace tavrel {
namespace {

constexpr int turns = 15;
constexpr int keys = 100;

MenuPopup* level() {
  return dynamic_cast<MenuPopup*>(QApplication::activePopupWidget());
}

/// Tells when a widget has been painted.
class PaintWatch final : public QObject {
public:
  PaintWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    painted_ |= event->type() == QEvent::Paint && object == level();
    return false;
  }
  /// From the start of some work until the innermost level is painted, on the screen.
  double milliseconds(const std::function<void()>& work) {
    painted_ = false;
    QElapsedTimer time;
    time.start();
    work();
    while (!painted_)
      QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    waitForServer();
    return static_cast<double>(time.nsecsElapsed()) / 1e6;
  }

private:
  bool painted_ = false;
};

std::size_t bytesInUse() {
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void key(int which, QEvent::Type type = QEvent::KeyPress) {
  QKeyEvent event(type, which, Qt::NoModifier);
  QApplication::sendEvent(level(), &event);
}

void addEntries(Menu& menu, int count, const QStringList& files, LinuxImages& images) {
  for (int i = 0; i < count; ++i) {
    const std::string path = files[i % files.size()].toStdString();
    MenuItem& item = menu.add({});
    item.title = "document number " + std::to_string(i) + ".txt";
    item.action = MenuAction::fileItemDidSelected;
    item.representedObject = path;
    item.image = images.iconForFile(path);
  }
}

QStringList makeFiles(const QString& folder) {
  QStringList paths;
  for (int i = 0; i < 1000; ++i) {
    paths += folder + QStringLiteral("/document %1.txt").arg(i);
    QFile file(paths.back());
    if (!file.open(QIODevice::WriteOnly))
      std::perror("a file");
  }
  return paths;
}

struct Figures {
  std::vector<double> opening;
  std::vector<double> moving;
  std::vector<double> following;
  double bytes = 0;
};

void measure(Figures& figures, int entries) {
  PaintWatch watch;
  for (int turn = 0; turn <= turns; ++turn) {
    const std::size_t before = bytesInUse();
    const double opening = watch.milliseconds([] { level()->openSubmenu(0); });
    if (turn == 0)
      figures.bytes = static_cast<double>(bytesInUse() - before) / entries;
    else
      figures.opening.push_back(opening);
    if (turn < turns)
      key(Qt::Key_Escape);
    QCoreApplication::processEvents();
  }
  for (int step = 0; step < 2 * keys; ++step) {
    const double moving = watch.milliseconds([] { key(Qt::Key_Down); });
    if (step > keys / 2)
      figures.moving.push_back(moving);
  }
  for (int turn = 0; turn < turns; ++turn)
    figures.following.push_back(watch.milliseconds(
        [&] { level()->showRowsFor(turn % 2 == 0 ? OptionKey::down : OptionKey::up); }));
  while (level())
    key(Qt::Key_Escape);
}

} // namespace
} // namespace tavrel

int main(int argc, char** argv) {
  using namespace tavrel;
  QApplication application(argc, argv);
  const int entries = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 1000;
  const QTemporaryDir folder;
  LinuxImages images(argc > 2 ? argv[2] : "resources/images");
  Menu menu;
  MenuItem& item = menu.add({});
  item.title = "Folder";
  item.submenu = std::make_shared<Menu>("folder");
  addEntries(*item.submenu, entries, makeFiles(folder.path()), images);
  Figures figures;
  QTimer::singleShot(200, [&] { measure(figures, entries); });
  LinuxPresenter().popUp(menu, {100, 700}, MenuFont::standard);
  std::printf("%d %.2f %.2f %.2f %.0f\n", entries, median(figures.opening), median(figures.moving),
              median(figures.following), figures.bytes);
}
