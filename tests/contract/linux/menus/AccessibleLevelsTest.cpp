#include "base/Modifiers.h"
#include "contract/MenuDiary.h"
#include "contract/linux/menus/MenuWorld.h"

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <gmock/gmock.h>

#include <unistd.h>

namespace tavrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

constexpr EntryEffects opensOrShows{.plain = ItemAction::openFile,
                                    .withoutFiles = ItemAction::openFile,
                                    .withCommand = ItemAction::showInFinder,
                                    .withOption = ItemAction::openFile};

std::vector<std::string>& focused() {
  static std::vector<std::string> names;
  return names;
}

/// Stands in for the bridge to screen readers.
void noteFocus(QAccessibleEvent* event) {
  if (event->type() != QAccessible::Focus && event->type() != QAccessible::NameChanged)
    return;
  const QAccessibleInterface* entry = event->accessibleInterface();
  if (entry && entry->role() == QAccessible::MenuItem)
    focused().push_back(entry->text(QAccessible::Name).toStdString());
}

QAccessibleInterface* accessibleLevel() {
  return QAccessible::queryAccessibleInterface(openLevel());
}

std::string nameOf(int row) {
  return accessibleLevel()->child(row)->text(QAccessible::Name).toStdString();
}

/// Another program at the bus of screen readers.
class ScreenReader {
public:
  ScreenReader() {
    const auto bus = QDBusConnection::sessionBus();
    auto enable =
        message("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set");
    enable << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled")
           << QVariant::fromValue(QDBusVariant(true));
    (void)bus.call(enable);
    const auto address =
        bus.call(message("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"));
    bus_ = QDBusConnection::connectToBus(address.arguments().value(0).toString(),
                                         QStringLiteral("screen reader"));
  }
  ~ScreenReader() { QDBusConnection::disconnectFromBus(QStringLiteral("screen reader")); }

  /// The menu's process at that bus; empty until the toolkit has come there.
  [[nodiscard]] QString application() {
    for (const QString& name :
         ask(message("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ListNames"))
             .toStringList()) {
      auto owner = message("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                           "GetConnectionUnixProcessID");
      owner << name;
      if (name.startsWith(u':') && name != bus_.baseService() && ask(owner).toInt() == ::getpid())
        return name;
    }
    return {};
  }

  [[nodiscard]] QVariant property(const QString& who, QAccessibleInterface* what,
                                  const char* name) {
    QDBusMessage get = QDBusMessage::createMethodCall(
        who, path(what), QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << QStringLiteral("org.a11y.atspi.Accessible") << QString::fromLatin1(name);
    return qvariant_cast<QDBusVariant>(ask(get)).variant();
  }
  [[nodiscard]] static QString path(QAccessibleInterface* what) {
    return QStringLiteral("/org/a11y/atspi/accessible/") +
           QString::number(QAccessible::uniqueId(what));
  }

private:
  static QDBusMessage message(const char* who, const char* path, const char* interface,
                              const char* member) {
    return QDBusMessage::createMethodCall(QString::fromLatin1(who), QString::fromLatin1(path),
                                          QString::fromLatin1(interface),
                                          QString::fromLatin1(member));
  }
  /// The menu answers on this very thread, which therefore must not block.
  [[nodiscard]] QVariant ask(const QDBusMessage& question) {
    QDBusPendingCallWatcher answer(bus_.asyncCall(question));
    EXPECT_TRUE(eventually([&] { return answer.isFinished(); }));
    return answer.reply().arguments().value(0);
  }

  QDBusConnection bus_{QString()};
};

class AccessibleLevels : public ::testing::Test {
protected:
  AccessibleLevels() {
    menu.delegate = &diary;
    world.presenter().setActionTarget(&diary);
  }
  MenuItem& add(std::string title, MenuAction action = MenuAction::fileItemDidSelected) {
    MenuItem& item = menu.add({});
    item.title = std::move(title);
    item.action = action;
    item.effects = opensOrShows;
    return item;
  }
  void addMany(int count) {
    for (int i = 0; i < count; ++i)
      add("Entry " + std::to_string(i));
  }
  void popUp(const std::function<void(MenuHands&)>& user) {
    world.person = user;
    world.presenter().popUp(menu, {100, 500}, MenuFont::standard);
  }
  static void follow(const std::function<void()>& what) {
    const ScreenReader reader;
    EXPECT_TRUE(eventually([] { return QAccessible::isActive(); }));
    focused().clear();
    const auto before = QAccessible::installUpdateHandler(noteFocus);
    what();
    QAccessible::installUpdateHandler(before);
  }

  MenuDiary diary;
  Menu menu{"menu"};
  LinuxWorld<> world;
};

TEST_F(AccessibleLevels, EveryEntryOfAHundredThousandHasAName) {
  addMany(100'000);
  popUp([](MenuHands&) {
    EXPECT_EQ(accessibleLevel()->role(), QAccessible::PopupMenu);
    EXPECT_EQ(accessibleLevel()->childCount(), 100'000);
    EXPECT_EQ(nameOf(0), "Entry 0");
    EXPECT_EQ(nameOf(99'999), "Entry 99999");
    EXPECT_EQ(accessibleLevel()->indexOfChild(accessibleLevel()->child(70'000)), 70'000);
    EXPECT_EQ(accessibleLevel()->child(100'000), nullptr);
    EXPECT_EQ(accessibleLevel()->child(-1), nullptr);
  });
}

TEST_F(AccessibleLevels, VisibleEntriesHaveAPlaceAndOthersAreOffscreen) {
  addMany(1000);
  popUp([](MenuHands&) {
    QAccessibleInterface* first = accessibleLevel()->child(0);
    EXPECT_TRUE(openLevel()->geometry().contains(first->rect()));
    EXPECT_FALSE(first->state().offscreen);
    EXPECT_TRUE(accessibleLevel()->child(999)->state().offscreen);
    const QPoint middle = accessibleLevel()->child(3)->rect().center();
    EXPECT_EQ(accessibleLevel()->childAt(middle.x(), middle.y()), accessibleLevel()->child(3));
  });
}

TEST_F(AccessibleLevels, StatesAndRolesAreThoseOfTheEntries) {
  menu.add({}).title = "Heading";
  menu.addSeparator();
  add("Ticked").state = MenuItemState::on;
  add("Folder").submenu = std::make_shared<Menu>();
  popUp([](MenuHands&) {
    const auto entry = [](int row) { return accessibleLevel()->child(row); };
    EXPECT_TRUE(entry(0)->state().disabled);
    EXPECT_EQ(entry(1)->role(), QAccessible::Separator);
    EXPECT_TRUE(entry(2)->state().checked);
    EXPECT_FALSE(entry(2)->state().hasPopup);
    EXPECT_TRUE(entry(3)->state().hasPopup);
    press("Down");
    EXPECT_TRUE(eventually([&] { return entry(2)->state().focused; }));
    EXPECT_EQ(accessibleLevel()->focusChild(), entry(2));
  });
}

TEST_F(AccessibleLevels, ScreenReadersAreNotifiedOfTheFocusedEntry) {
  addMany(1000);
  popUp([](MenuHands&) {
    follow([] {
      press("End");
      press("Up");
      EXPECT_TRUE(eventually([] { return currentTitle() == "Entry 998"; }));
      const QPoint place = centerOf(*openLevel(), 990);
      movePointerTo(place);
      EXPECT_TRUE(eventually([] { return currentTitle() == "Entry 990"; }));
    });
  });
  EXPECT_THAT(focused(), ElementsAre("Entry 999", "Entry 998", "Entry 990"));
}

TEST_F(AccessibleLevels, ScreenReadersAreNotifiedOfTheAlternateAsOptionGoesDown) {
  addMany(1000);
  MenuItem& alternate = add("Entry 999, moved to");
  alternate.isAlternate = true;
  alternate.keyEquivalentModifierMask = modifier::option;
  popUp([](MenuHands& hands) {
    press("End");
    EXPECT_TRUE(eventually([] { return currentTitle() == "Entry 999"; }));
    follow([&] { hands.holdOption(); });
    hands.releaseOption();
  });
  EXPECT_THAT(focused(), Contains("Entry 999, moved to"));
}

TEST_F(AccessibleLevels, ADescriptionTellsWhatChoosingDoes) {
  add("File");
  add("Folder").submenu = std::make_shared<Menu>();
  MenuItem& alternate = add("Folder");
  alternate.isAlternate = true;
  alternate.keyEquivalentModifierMask = modifier::option;
  alternate.effects = {.plain = ItemAction::moveSelectedFiles,
                       .withoutFiles = ItemAction::openFolder,
                       .withCommand = ItemAction::moveSelectedFiles,
                       .withOption = ItemAction::moveSelectedFiles};
  add("Group", MenuAction::none).submenu = std::make_shared<Menu>();
  popUp([](MenuHands& hands) {
    const auto description = [](int row) {
      return accessibleLevel()->child(row)->text(QAccessible::Description).toStdString();
    };
    EXPECT_EQ(description(0), "Opens the file; with Ctrl, shows it in its folder");
    EXPECT_EQ(description(1), "Opens the folder; its submenu lists what is inside");
    EXPECT_EQ(description(2), "Opens a submenu");
    hands.holdOption();
    EXPECT_EQ(description(1), "Moves the selected files into this folder; without any, opens it");
    hands.releaseOption();
  });
}

TEST_F(AccessibleLevels, ADescriptionTellsWhatBecomesOfARecentItemAServerAndAnApplication) {
  add("Letter", MenuAction::recentItemSelected).representedObject = PropertyList(Bytes{1});
  add("nas", MenuAction::recentItemSelected).effects.plain = ItemAction::openServer;
  add("Mail", MenuAction::processItemSelected).effects = {.plain = ItemAction::bringToFront,
                                                          .withoutFiles = ItemAction::bringToFront,
                                                          .withCommand = ItemAction::showInFinder,
                                                          .withOption = ItemAction::quit};
  popUp([](MenuHands&) {
    const auto description = [](int row) {
      return accessibleLevel()->child(row)->text(QAccessible::Description).toStdString();
    };
    EXPECT_EQ(description(0), "Opens the recent item; with Ctrl, shows it in its folder");
    EXPECT_EQ(description(1), "Opens the server");
    EXPECT_EQ(description(2),
              "Comes to the front; with Alt, quits; with Ctrl, is shown in its folder");
  });
}

TEST_F(AccessibleLevels, ADescriptionIsInTheUsersLanguage) {
  add("File");
  world.presenter().setLocalize([](const std::string& text) { return "<" + text + ">"; });
  popUp([](MenuHands&) {
    EXPECT_EQ(accessibleLevel()->child(0)->text(QAccessible::Description),
              "<Opens the file; with Ctrl, shows it in its folder>");
  });
}

TEST_F(AccessibleLevels, AnEntryCanBeChosenThroughItsAction) {
  addMany(1000);
  popUp([](MenuHands&) {
    QAccessibleActionInterface* action = accessibleLevel()->child(700)->actionInterface();
    EXPECT_THAT(action->actionNames(), ElementsAre(QAccessibleActionInterface::pressAction()));
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(eventually([] { return openLevel() == nullptr; }));
  });
  EXPECT_THAT(diary.lines, Contains("chosen Entry 700"));
}

TEST_F(AccessibleLevels, ASubmenuCanBeOpenedThroughItsAction) {
  addMany(1000);
  menu.items[700]->submenu = std::make_shared<Menu>("inner");
  menu.items[700]->submenu->add({}).title = "Inside";
  popUp([](MenuHands&) {
    const MenuPopup* outer = openLevel();
    QAccessibleInterface* entry = accessibleLevel()->child(700);
    entry->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    ASSERT_TRUE(eventually([&] { return openLevel() != outer; }));
    EXPECT_EQ(nameOf(0), "Inside");
    EXPECT_EQ(entry->child(0), accessibleLevel());
    EXPECT_EQ(accessibleLevel()->parent(), entry);
    EXPECT_EQ(accessibleLevel()->text(QAccessible::Name), "Entry 700");
  });
}

TEST_F(AccessibleLevels, AScreenReaderReadsCountAndNamesOfAHundredThousandEntries) {
  addMany(100'000);
  ScreenReader reader;
  popUp([&](MenuHands&) {
    QString menuProcess;
    ASSERT_TRUE(eventually([&] { return !(menuProcess = reader.application()).isEmpty(); }));
    EXPECT_EQ(reader.property(menuProcess, accessibleLevel(), "ChildCount").toInt(), 100'000);
    QAccessibleInterface* far = accessibleLevel()->child(87'654);
    EXPECT_EQ(reader.property(menuProcess, far, "Name").toString(), "Entry 87654");
    EXPECT_EQ(reader.property(menuProcess, far, "Description").toString(),
              "Opens the file; with Ctrl, shows it in its folder");
  });
}

} // namespace
} // namespace tavrel
