#include "base/Modifiers.h"
#include "platform/linux/images/LinuxImages.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/tray/LinuxStatusBar.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>
#include <QStyleFactory>
#include <QTimer>

#include <cstdio>

/// Shows a menu with one of everything, to be looked at: as a pop-up, and from a status item.

namespace tavrel {
namespace {

Image picture(std::string_view svg, Size size) {
  static LinuxImages images{std::string()};
  return resized(images.fromData(Bytes(svg.begin(), svg.end())).value_or(Image{}), size);
}

Image document() {
  return picture(
      R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16"><path d="M3.5 .5h6l3 3v12h-9z" fill="#fff" stroke="#555"/><path d="M5 6h6M5 8h6M5 10h6M5 12h4" stroke="#36c"/></svg>)",
      menuIconSize);
}
Image folder() {
  return picture(
      R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16"><path d="M.5 3.5h5l1 2h9v8h-15z" fill="#6ab0f3" stroke="#2a6db0"/></svg>)",
      menuIconSize);
}
Image badge() {
  return picture(
      R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 8 8"><circle cx="4" cy="4" r="3.6" fill="#d33" stroke="#fff" stroke-width=".8"/><path d="M2 4h3.4M4 2.4L5.8 4 4 5.6" stroke="#fff" fill="none"/></svg>)",
      {8, 8});
}

MenuItem entry(std::string title, std::optional<Image> image = {}) {
  MenuItem item;
  item.title = std::move(title);
  item.action = MenuAction::statusMenuDidSelected;
  item.image = std::move(image);
  return item;
}

MenuItem shortcut(MenuItem item, std::string key, std::uint32_t mask) {
  item.keyEquivalent = std::move(key);
  item.keyEquivalentModifierMask = mask;
  return item;
}

MenuItem group(std::string title, std::shared_ptr<Menu> menu, MenuAction action,
               std::optional<Image> image = {}) {
  MenuItem item = entry(std::move(title), std::move(image));
  item.submenu = std::move(menu);
  item.action = action;
  return item;
}

MenuItem alternateOf(MenuItem item) {
  item.isAlternate = true;
  item.keyEquivalentModifierMask = modifier::option;
  item.submenu = nullptr;
  if (item.image)
    item.image = withBadge(*item.image, badge());
  return item;
}

std::shared_ptr<Menu> runningApplications() {
  auto menu = std::make_shared<Menu>("TVRM_ProcessMenu");
  for (const char* name : {"Editor", "Files", "Terminal"})
    menu->add(entry(name, document()));
  menu->items[1]->state = MenuItemState::on;
  menu->add(entry("No icon"));
  return menu;
}

std::shared_ptr<Menu> recentItems() {
  auto menu = std::make_shared<Menu>("TVRM_RecentMenu");
  for (const char* header : {"Applications", "Documents"}) {
    menu->add(entry(header)).action = MenuAction::none;
    for (const char* name : {"First", "Second"})
      menu->add(entry(name, document())).indentation = 1;
    menu->addSeparator();
  }
  return menu;
}

std::shared_ptr<Menu> ticks() {
  auto menu = std::make_shared<Menu>("group");
  for (const char* name : {"Ticked", "Plain", "Ticked, disabled"})
    menu->add(entry(name)).state = MenuItemState::on;
  menu->items[1]->state = MenuItemState::off;
  menu->items[2]->enabled = false;
  return menu;
}

std::shared_ptr<Menu> oddTitles() {
  auto menu = std::make_shared<Menu>("group");
  for (const char* title :
       {"Fish & Chips && Peas", "Line\nfeed", "Tab\there", "turned \u202Etxt.exe\u202C round", "",
        "日本語のメニュー項目", "简体中文菜单", "عربي", "👍 e\u0301 \xE9 bad byte"})
    menu->add(shortcut(entry(title, document()), "t", modifier::command));
  menu->add(entry(std::string(10'000, 'x') + ".txt", document()));
  menu->add(entry("A title that is about as long as a title of a document can well be expected to "
                  "be, and more.pdf",
                  folder()));
  return menu;
}

std::shared_ptr<Menu> longMenu() {
  auto menu = std::make_shared<Menu>("group");
  for (int i = 0; i < 200; ++i)
    menu->add(entry("Entry " + std::to_string(i), document()));
  return menu;
}

void fill(Menu& menu) {
  menu.add(entry("Hidden")).hidden = true;
  menu.add(group("Running Applications", runningApplications(), MenuAction::none));
  menu.add(group("Recent Items", recentItems(), MenuAction::none));
  menu.addSeparator();
  menu.add(shortcut(entry("Letter.txt", document()), "l", modifier::command));
  menu.add(shortcut(entry("Everything", document()), "k",
                    modifier::command | modifier::shift | modifier::option | modifier::control));
  menu.add(shortcut(entry("Function key", document()), "\uF708", 0));
  menu.add(group("Projects", recentItems(), MenuAction::statusMenuDidSelected, folder()));
  menu.add(alternateOf(group("Move into Projects, which is wider", nullptr,
                             MenuAction::statusMenuDidSelected, folder())));
  menu.add(entry("With a badge", withBadge(document(), badge())));
  menu.add(entry("?? Gone.txt")).enabled = false;
  menu.add(shortcut(entry("Disabled with icon", document()), "d", modifier::command)).enabled =
      false;
  menu.add(group("Disabled group", recentItems(), MenuAction::none)).enabled = false;
  menu.addSeparator();
  menu.add(group("Ticks without icons", ticks(), MenuAction::none));
  menu.add(group("Odd titles", oddTitles(), MenuAction::none));
  menu.add(group("A long menu", longMenu(), MenuAction::none));
  menu.add(group("An empty menu", std::make_shared<Menu>("group"), MenuAction::none));
  menu.add(entry("Tavrel Setting", folder()));
}

QPalette darkPalette() {
  QPalette dark(QColor(0x2d, 0x2d, 0x2d));
  dark.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
  dark.setColor(QPalette::Highlight, QColor(0x2a, 0x6d, 0xb0));
  for (const auto role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText}) {
    dark.setColor(role, Qt::white);
    dark.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8a, 0x8a));
  }
  return dark;
}

class Printer final : public MenuActionTarget {
public:
  void menuItemChosen(MenuItem& item) override {
    std::printf("%s\n", item.title.c_str());
    std::fflush(stdout);
  }
};

int run(const QCommandLineParser& options) {
  LinuxPresenter presenter;
  Printer printer;
  presenter.setActionTarget(&printer);
  Menu menu("gallery");
  fill(menu);
  LinuxStatusBar statusBar(presenter);
  const auto item = statusBar.addItem(-1.0);
  LinuxImages resources(options.value("images").toStdString());
  item->setImage(resources.named("TavrelBarIcon").value_or(document()));
  item->setMenu(&menu);
  if (!options.isSet("wait"))
    QTimer::singleShot(0, qApp, [&] {
      presenter.popUp(menu, presenter.pointerLocation(),
                      options.isSet("small") ? MenuFont::small : MenuFont::standard);
      QApplication::quit();
    });
  return QApplication::exec();
}

} // namespace
} // namespace tavrel

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QCommandLineParser options;
  options.addHelpOption();
  options.addOptions({{"dark", "Use a dark palette."},
                      {"images", "Take the status icon from this folder.", "folder"},
                      {"small", "Use the small font."},
                      {"wait", "Wait for clicks on the status item."}});
  options.process(application);
  if (options.isSet("dark"))
    QApplication::setPalette(tavrel::darkPalette());
  return tavrel::run(options);
}
