#include "platform/linux/menus/AccessibleApplication.h"

#include <QAccessibleObject>
#include <QGuiApplication>
#include <QWindow>

namespace tavrel {

namespace {

bool isShown(const QWindow& window) {
  return window.type() != Qt::Desktop && (window.type() != Qt::Popup || window.isVisible());
}

// A submenu is a child of the entry that opens it.
bool isRoot(const QWindow& window) {
  return window.type() != Qt::Popup || !window.transientParent() ||
         window.transientParent()->type() != Qt::Popup;
}

QList<QAccessibleInterface*> topLevels() {
  QList<QAccessibleInterface*> roots;
  for (QWindow* window : QGuiApplication::topLevelWindows())
    if (QAccessibleInterface* root =
            isShown(*window) && isRoot(*window) ? window->accessibleRoot() : nullptr)
      roots.append(root);
  return roots;
}

class AccessibleApplication final : public QAccessibleObject {
public:
  AccessibleApplication() : QAccessibleObject(qApp) {}

  [[nodiscard]] QWindow* window() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return static_cast<int>(topLevels().size()); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    return topLevels().value(index);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto roots = topLevels();
    for (int index = 0; index < roots.size(); ++index)
      if (roots[index]->object() == child->object())
        return index;
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    QWindow* focused = QGuiApplication::focusWindow();
    return focused ? focused->accessibleRoot() : nullptr;
  }
  [[nodiscard]] QString text(QAccessible::Text what) const override {
    return what == QAccessible::Name ? QGuiApplication::applicationName() : QString();
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Application; }
  [[nodiscard]] QAccessible::State state() const override { return {}; }
};

QAccessibleInterface* applicationInterface(const QString&, QObject* object) {
  return object && object == qApp ? new AccessibleApplication : nullptr;
}

} // namespace

void installAccessibleApplication() {
  QAccessible::installFactory(applicationInterface);
}

} // namespace tavrel
