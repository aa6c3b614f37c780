#pragma once

#include "platform/linux/menus/MenuPopup.h"
#include <QAccessible>

#include <QPointer>

namespace tavrel {

/// A row of an open level for screen readers. It reads the row's entry each time, because Option
/// may show another one there.
class AccessibleEntry final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  AccessibleEntry(MenuPopup& level, std::size_t row);

  [[nodiscard]] std::size_t row() const { return row_; }

  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QString text(QAccessible::Text what) const override;
  void setText(QAccessible::Text, const QString&) override {}
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

private:
  QPointer<MenuPopup> level_;
  std::size_t row_;
};

} // namespace tavrel
