#pragma once

#include <QAccessibleWidget>

#include <map>

namespace tavrel {

class MenuPopup;

/// From now on screen readers find each row of our menus, seen or not, and what choosing it does.
/// Once is enough.
void ensureAccessibleLevels();

/// A level as screen readers see it. Its rows become objects when they are asked for.
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
