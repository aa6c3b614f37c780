#pragma once

#include "platform/linux/menus/LevelMetrics.h"
#include "platform/linux/menus/LevelRows.h"
#include "platform/linux/menus/RowSteps.h"

#include <QMenu>
#include <QTimer>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tavrel {

class MenuPopup;

/// The owner of the levels of an open menu, which they report to.
class MenuPopupOwner {
public:
  virtual ~MenuPopupOwner() = default;
  virtual void submenuOpens(MenuPopup& level) = 0; ///< it is empty, and to be filled now
  virtual void submenuCloses(MenuPopup& level) = 0;
  virtual void entryChosen(std::shared_ptr<MenuItem> item) = 0;
  /// An English text in the user's language.
  [[nodiscard]] virtual std::string localized(const std::string& text) = 0;
};

/// Levels with more rows than this give the toolkit only those that are visible: the time that
/// QMenu (Qt 6) needs grows with the square of their number.
inline constexpr std::size_t longestPlainLevel = 500;

/// One level of a menu on the screen, filled when it opens. A short level is a QMenu with an action
/// for each row. A long one looks and works the same, but has actions for the visible rows only;
/// this class scrolls by giving them other rows.
class MenuPopup final : public QMenu {
public:
  MenuPopup(MenuPopupOwner& owner, std::shared_ptr<Menu> menu,
            std::size_t longestPlain = longestPlainLevel);

  [[nodiscard]] Menu& menu() const { return *menu_; }
  [[nodiscard]] std::shared_ptr<Menu> sharedMenu() const { return menu_; }

  /// Fills a level that is about to show, as wide as both states of the Option key need.
  void fill(OptionKey option);
  /// Shows the rows for another state of the Option key; the highlight stays in its place.
  void showRowsFor(OptionKey option);

  [[nodiscard]] const LevelRows& rows() const { return rows_; }
  /// What choosing a row does, in words for screen readers; may be empty.
  [[nodiscard]] std::string description(std::size_t row) const;
  /// The row with the highlight; it may have been scrolled out of sight.
  [[nodiscard]] std::optional<std::size_t> currentRow() const;
  /// Scrolls until a row is visible and highlights it; its submenu stays closed.
  void highlight(std::size_t row);
  /// As Return does on the row; false when it cannot be chosen.
  bool choose(std::size_t row);
  void openSubmenu(std::size_t row);

  /// Where a row is in the level; empty when it is not visible.
  [[nodiscard]] QRect rowGeometry(std::size_t row) const;
  /// The level's submenu of a row while it is open.
  [[nodiscard]] MenuPopup* openSubmenuOf(std::size_t row) const;
  [[nodiscard]] std::optional<std::size_t> rowOfSubmenu(const MenuPopup& submenu) const;
  [[nodiscard]] std::optional<std::size_t> rowAt(QPoint place) const;
  /// The row for the number by which the toolkit, or a screen reader, names an entry.
  [[nodiscard]] std::size_t rowOfToolkit(int number) const;

  [[nodiscard]] QSize sizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void actionEvent(QActionEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
  using Items = std::vector<std::shared_ptr<MenuItem>>;
  /// An action of the toolkit and the entry that it shows now.
  struct Slot {
    QAction* action = nullptr;
    std::shared_ptr<MenuItem> item;
  };
  enum class Slots { every, changed };

  // MenuPopup.cpp: rows and the actions that show them
  void fillPlain(OptionKey option);
  void fillLong(OptionKey option);
  void mirror(const Items& items, Slots slots);
  void appendSlot(const std::shared_ptr<MenuItem>& item);
  void setSlot(Slot& slot, const std::shared_ptr<MenuItem>& item);
  [[nodiscard]] static bool hasOpenSubmenu(const Slot& slot);
  [[nodiscard]] MenuPopup* submenuOf(const MenuItem& item);
  void dropUnusedSubmenus();
  void layOut();
  void announceNewName() const;
  [[nodiscard]] std::optional<std::size_t> slotOf(std::size_t row) const;
  [[nodiscard]] std::optional<std::size_t> rowOf(const QAction* action) const;

  // MenuPopupScroll.cpp: the visible rows of a long level
  void refreshVisibleRows(Slots slots);
  void scroll(ScrollDirection direction, std::size_t rows);
  void scrollOn();
  void highlightUnderPointer();
  [[nodiscard]] QRect arrowArea(ScrollDirection direction) const;
  [[nodiscard]] std::optional<ScrollDirection> arrowAt(QPoint place) const;
  void paintArrow(QPainter& painter, ScrollDirection direction) const;

  // MenuPopupInput.cpp: keys and pointer
  [[nodiscard]] bool isOpeningKey(int key) const;
  void pressKey(int key);
  void step(RowStep step);
  bool choose(const QAction* action);
  void followPointer(QMouseEvent& motion);
  void bringPointer(const QMouseEvent& press);
  [[nodiscard]] bool hasMoved(const QMouseEvent& pointer) const;
  [[nodiscard]] bool isLeftBehind(const QMouseEvent& pointer) const;

  MenuPopupOwner& owner_;
  std::shared_ptr<Menu> menu_;
  std::size_t longestPlain_;
  LevelRows rows_;
  std::vector<Slot> slots_;
  std::map<const Menu*, MenuPopup*> submenus_;
  const QAction* pressedAction_ = nullptr;
  int openingKey_ = 0; ///< the key that opens the submenu when it goes up
  QPoint pointerAtOpening_;
  bool isMirroring_ = false; ///< actions change one by one, and are laid out once at the end

  bool isLong_ = false;
  LevelMetrics metrics_;
  RowWindow visibleRows_;
  std::size_t firstRow_ = 0;                  ///< the row of the first slot
  std::optional<std::size_t> scrolledOutRow_; ///< the row with the highlight when it is not visible
  std::optional<ScrollDirection> scrolling_;
  QTimer scrollTimer_;
};

} // namespace tavrel
