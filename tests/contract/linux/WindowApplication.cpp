// An application with windows for tests: a window for each argument, "ordinary", "dock" or
// "desktop", or one that is filled by a "field" or by a "button" with a label in it. It ends with
// whoever started it. Its name, and the class of its windows, is that of the file it was started
// by.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <memory>
#include <sys/prctl.h>
#include <vector>

#include <csignal>

static void fill(QWidget& widget, QWidget* content) {
  content->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  auto* layout = new QVBoxLayout(&widget);
  layout->setContentsMargins({});
  layout->addWidget(content);
}

int main(int argc, char** argv) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  QApplication application(argc, argv);
  std::vector<std::unique_ptr<QWidget>> windows;
  for (const QString& kind : application.arguments().mid(1)) {
    windows.push_back(std::make_unique<QWidget>());
    windows.back()->winId(); // only a window that is there takes a type
    windows.back()->setAttribute(Qt::WA_X11NetWmWindowTypeDock, kind == QStringLiteral("dock"));
    windows.back()->setAttribute(Qt::WA_X11NetWmWindowTypeDesktop,
                                 kind == QStringLiteral("desktop"));
    if (kind == QStringLiteral("field"))
      fill(*windows.back(), new QLineEdit);
    if (kind == QStringLiteral("button")) {
      auto* button = new QPushButton;
      fill(*windows.back(), button);
      fill(*button, new QLabel(QStringLiteral("label")));
    }
    windows.back()->resize(200, 100);
    windows.back()->show();
  }
  return application.exec();
}
