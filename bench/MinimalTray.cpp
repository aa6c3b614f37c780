#include <QApplication>
#include <QMenu>
#include <QSystemTrayIcon>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  application.setQuitOnLastWindowClosed(false);
  QPixmap picture(16, 16);
  picture.fill(Qt::black);
  QMenu menu;
  menu.addAction("Quit", &application, &QApplication::quit);
  QSystemTrayIcon icon{QIcon(picture)};
  icon.setContextMenu(&menu);
  icon.show();
  return application.exec();
}
