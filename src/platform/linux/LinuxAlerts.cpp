#include "platform/linux/LinuxAlerts.h"

#include <QMessageBox>
#include <QPushButton>

namespace tavrel {

namespace {

// A label shows what it takes for a mark of a short cut or of markup; these texts have none.
QString plain(const std::string& text) {
  return QString::fromStdString(text);
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
  box.setTextFormat(Qt::PlainText);
  box.setText(plain(panel.title));
  box.setInformativeText(plain(panel.message));
  QPushButton* standard = addButton(box, panel.defaultButton, QMessageBox::AcceptRole);
  QPushButton* other = addButton(box, panel.otherButton, QMessageBox::ActionRole);
  QPushButton* alternate = addButton(box, panel.alternateButton, QMessageBox::RejectRole);
  box.setDefaultButton(standard);
  box.setEscapeButton(alternate ? alternate : standard);
  box.setWindowFlag(Qt::WindowStaysOnTopHint);
  box.exec();
  if (other && box.clickedButton() == other)
    return AlertAnswer::other;
  return alternate && box.clickedButton() == alternate ? AlertAnswer::alternate
                                                       : AlertAnswer::standard;
}

} // namespace tavrel
