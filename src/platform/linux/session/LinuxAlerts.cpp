#include "platform/linux/session/LinuxAlerts.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace tavrel {

namespace {

// Texts may come from a server: long ones must not push the buttons off the screen.
constexpr int longestAlertText = 600;
constexpr int mostAlertLines = 10;
constexpr QSize iconSize{64, 64};

QString plain(const std::string& text) {
  const QString whole = QString::fromStdString(text);
  const QString shown = whole.left(longestAlertText).section('\n', 0, mostAlertLines - 1);
  return shown.size() < whole.size() ? shown + QChar(0x2026) : whole;
}

// A label guesses whether its text is markup; these texts are plain.
void showAsTheyAre(const QMessageBox& box) {
  for (QLabel* label : box.findChildren<QLabel*>())
    label->setTextFormat(Qt::PlainText);
}

QPushButton* addButton(QMessageBox& box, const std::string& title, QMessageBox::ButtonRole role) {
  if (title.empty())
    return nullptr;
  return box.addButton(plain(title).replace('&', "&&"), role);
}

} // namespace

AlertAnswer LinuxAlerts::run(const AlertPanel& panel) {
  QMessageBox box;
  box.setWindowTitle("Tavrel");
  box.setIconPixmap(box.windowIcon().pixmap(iconSize));
  box.setText(plain(panel.title));
  box.setInformativeText(plain(panel.message));
  showAsTheyAre(box);
  QPushButton* standard = addButton(box, panel.defaultButton, QMessageBox::AcceptRole);
  QPushButton* other = addButton(box, panel.otherButton, QMessageBox::ActionRole);
  QPushButton* alternate = addButton(box, panel.alternateButton, QMessageBox::RejectRole);
  box.setDefaultButton(standard);
  box.setEscapeButton(alternate ? alternate : standard);
  box.setWindowFlag(Qt::WindowStaysOnTopHint);
  box.exec();
  // No button was clicked when the program is told to end while the box is open.
  const QAbstractButton* chosen = box.clickedButton() ? box.clickedButton() : box.escapeButton();
  if (chosen == standard)
    return AlertAnswer::standard;
  return chosen == other ? AlertAnswer::other : AlertAnswer::alternate;
}

} // namespace tavrel
