#include "contract/AlertsContract.h"

#include "platform/linux/session/LinuxAlerts.h"
#include "support/Desktop.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <functional>

namespace tavrel {
namespace {

using ::testing::Contains;

QMessageBox* panelInFront() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  return box && box->isActiveWindow() ? box : nullptr;
}

/// Shows a panel and does something once it is in front, as only then keys reach it.
AlertAnswer answerOnceShown(const AlertPanel& panel, std::function<void(QMessageBox&)> deed) {
  LinuxAlerts alerts;
  QTimer poll;
  const QDeadlineTimer deadline(10000);
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (QMessageBox* box = panelInFront()) {
      poll.stop();
      deed(*box);
    } else if (deadline.hasExpired()) {
      ADD_FAILURE() << "no panel came to the front";
      for (QWidget* widget : QApplication::topLevelWidgets())
        widget->close();
    }
  });
  poll.start(5);
  return alerts.run(panel);
}

void press(const QMessageBox& box, const std::string& title) {
  for (QAbstractButton* button : box.buttons())
    if (button->text().toStdString() == title)
      return button->click();
  ADD_FAILURE() << "there is no button " << title;
}

class LinuxAlertsWorld {
public:
  AlertAnswer answer(const AlertPanel& panel, AlertDeed deed) {
    return answerOnceShown(panel, [&](QMessageBox& box) {
      switch (deed) {
      case AlertDeed::pressDefault:
        return xdotool({"key", "Return"});
      case AlertDeed::pressAlternate:
        return press(box, panel.alternateButton);
      case AlertDeed::pressOther:
        return press(box, panel.otherButton);
      case AlertDeed::escape:
        return xdotool({"key", "Escape"});
      case AlertDeed::close:
        box.close();
        return;
      }
    });
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, AlertsContract, LinuxAlertsWorld);

std::string spoken(QWidget* widget) {
  return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).toStdString();
}

std::vector<std::string> labels(const QMessageBox& box) {
  std::vector<std::string> texts;
  for (QLabel* label : box.findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
    texts.push_back(spoken(label));
  }
  return texts;
}

TEST(LinuxAlerts, TextsAreShownAsTheyAre) {
  const AlertPanel panel{.title = "A & <b>B</b> &C",
                         .message = "<img src=x> &amp; R&D",
                         .defaultButton = "R&D <i>",
                         .alternateButton = "&No"};
  answerOnceShown(panel, [&](QMessageBox& box) {
    EXPECT_THAT(labels(box), Contains(panel.title));
    EXPECT_THAT(labels(box), Contains(panel.message));
    std::vector<std::string> buttons;
    for (QAbstractButton* button : box.buttons())
      buttons.push_back(spoken(button));
    EXPECT_THAT(buttons, ::testing::UnorderedElementsAre(panel.defaultButton, "&No"));
    box.close();
  });
}

TEST(LinuxAlerts, OneTextMakesOneButton) {
  answerOnceShown({.title = "T", .message = "M", .defaultButton = "OK"}, [](QMessageBox& box) {
    EXPECT_EQ(box.buttons().size(), 1);
    box.close();
  });
}

TEST(LinuxAlerts, ThePanelStaysAboveOtherWindows) {
  answerOnceShown({.title = "T", .message = "M", .defaultButton = "OK"}, [](QMessageBox& box) {
    EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    box.close();
  });
}

TEST(LinuxAlerts, AnEndlessTextLeavesTheButtonsOnTheScreen) {
  std::string lines;
  std::string words;
  for (int i = 0; i < 10000; ++i) {
    lines += "line\n";
    words += "word ";
  }
  for (const std::string& text : {lines, words, std::string(100000, 'x')})
    answerOnceShown({.title = text, .message = text, .defaultButton = "OK"}, [](QMessageBox& box) {
      EXPECT_TRUE(box.screen()->availableGeometry().contains(box.geometry()))
          << box.width() << " by " << box.height();
      box.close();
    });
}

TEST(LinuxAlerts, TimersGoOnMeanwhile) {
  bool rang = false;
  QTimer::singleShot(0, [&rang] { rang = true; });
  answerOnceShown({.title = "T", .message = "M", .defaultButton = "OK"},
                  [](QMessageBox& box) { box.close(); });
  EXPECT_TRUE(rang);
}

} // namespace
} // namespace tavrel
