#pragma once

#include <QAccessibleWidget>

#include <map>

namespace tavrel {

class MenuPopup;

/// From now on screen readers get an AccessibleLevel for each level of our menus. Further calls do
/// nothing.
void ensureAccessibleLevels();

/// A level for screen readers, with all its rows, on the screen or not. The objects of rows are
/// made when they are first requested.
class AccessibleLevel final : public QAccessibleWidget {
public:
  explicit AccessibleLevel(MenuPopup& level);
  ~AccessibleLevel() override;
  AccessibleLevel(const AccessibleLevel&) = delete;
  AccessibleLevel& operator=(const AccessibleLevel&) = delete;

  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QString text(QAccessible::Text what) const override;

private:
  [[nodiscard]] QAccessibleInterface* entry(std::size_t row) const;

  MenuPopup& level_;
  mutable std::map<std::size_t, QAccessible::Id> entries_;
};

} // namespace tavrel
