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

/// What a level of an open menu reports, and whom it asks.
class MenuPopupOwner {
public:
  virtual ~MenuPopupOwner() = default;
  virtual void submenuOpens(MenuPopup& level) = 0; ///< still empty: to be filled now
  virtual void submenuCloses(MenuPopup& level) = 0;
  virtual void entryChosen(std::shared_ptr<MenuItem> item) = 0;
  /// The text for an English one in the person's language.
  [[nodiscard]] virtual std::string localized(const std::string& text) = 0;
};

/// Levels with more rows give the toolkit only those that are seen: its own cost grows with the
/// square of their number.
inline constexpr std::size_t longestPlainLevel = 500;

/// One level of a menu on the screen. It is filled as it opens; submenus cost next to nothing until
/// then. A long level looks and works the same: the toolkit lays out and paints the rows in sight,
/// and this class moves them along.
class MenuPopup final : public QMenu {
public:
  MenuPopup(MenuPopupOwner& owner, std::shared_ptr<Menu> menu,
            std::size_t longestPlain = longestPlainLevel);

  [[nodiscard]] Menu& menu() const { return *menu_; }
  [[nodiscard]] std::shared_ptr<Menu> sharedMenu() const { return menu_; }

  /// Fills a level that is about to show; it stays as wide as either state of the Option key needs.
  void fill(OptionKey option);
  /// Shows the rows for the Option key as it is now; the highlight stays in its place.
  void follow(OptionKey option);

  [[nodiscard]] const LevelRows& rows() const { return shown_; }
  /// What choosing a row will do, in words; may be empty.
  [[nodiscard]] std::string description(std::size_t row) const;
  /// The row with the highlight; it may have been scrolled out of sight.
  [[nodiscard]] std::optional<std::size_t> currentRow() const;
  /// Brings a row into sight and highlights it; its submenu stays closed.
  void highlight(std::size_t row);
  /// As Return does on the row; false when it cannot be chosen.
  bool choose(std::size_t row);
  void openSubmenu(std::size_t row);

  /// Where a row is in the level; empty when it is out of sight.
  [[nodiscard]] QRect rowGeometry(std::size_t row) const;
  /// The level's submenu of a row while it is open.
  [[nodiscard]] MenuPopup* openSubmenuOf(std::size_t row) const;
  [[nodiscard]] std::optional<std::size_t> rowOfSubmenu(const MenuPopup& submenu) const;
  [[nodiscard]] std::optional<std::size_t> rowAt(QPoint place) const;
  /// The row that the toolkit means by the number of an entry.
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
  /// What shows a row: the toolkit's entry, and ours that it stands for now.
  struct Slot {
    QAction* action = nullptr;
    std::shared_ptr<MenuItem> item;
  };
  enum class Slots { every, changed };

  // MenuPopup.cpp: rows and what shows them
  void fillPlain(OptionKey option);
  void fillLong(OptionKey option);
  void mirror(const Items& items, Slots slots);
  void appendSlot(const std::shared_ptr<MenuItem>& item);
  void setSlot(Slot& slot, const std::shared_ptr<MenuItem>& item);
  [[nodiscard]] static bool hasOpenSubmenu(const Slot& slot);
  [[nodiscard]] MenuPopup* submenuOf(const MenuItem& item);
  void dropUnusedSubmenus();
  void layOut();
  void tellNewName() const;
  [[nodiscard]] std::optional<std::size_t> slotOf(std::size_t row) const;
  [[nodiscard]] std::optional<std::size_t> rowOf(const QAction* action) const;

  // MenuPopupScroll.cpp: the part of a long level that is seen
  void slide(Slots slots);
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

  MenuPopupOwner& owner_;
  std::shared_ptr<Menu> menu_;
  std::size_t longestPlain_;
  LevelRows shown_;
  std::vector<Slot> slots_;
  std::map<const Menu*, MenuPopup*> submenus_;
  const QAction* pressed_ = nullptr;
  int openingKey_ = 0;
  bool mirroring_ = false;

  bool isLong_ = false;
  LevelMetrics metrics_;
  RowWindow window_;
  std::size_t first_ = 0; ///< the row of the first slot
  std::optional<std::size_t> current_;
  std::optional<ScrollDirection> scrolling_;
  QTimer scrollTimer_;
};

} // namespace tavrel
