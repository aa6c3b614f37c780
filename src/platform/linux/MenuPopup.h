#pragma once

#include "platform/MenuRows.h"
#include "platform/linux/ImageIcon.h"

#include <QMenu>

#include <map>
#include <memory>
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
};

/// One level of a menu on the screen. It is filled as it opens; submenus cost next to nothing until
/// then.
class MenuPopup final : public QMenu {
public:
  MenuPopup(MenuPopupOwner& owner, std::shared_ptr<Menu> menu);

  [[nodiscard]] Menu& menu() const { return *menu_; }
  [[nodiscard]] std::shared_ptr<Menu> sharedMenu() const { return menu_; }

  /// Fills a level that is about to show; it stays as wide as either state of the Option key needs.
  void fill(OptionKey option);
  /// Shows the rows for the Option key as it is now; the highlight stays in its place.
  void follow(OptionKey option);

protected:
  void actionEvent(QActionEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

private:
  using Items = std::vector<std::shared_ptr<MenuItem>>;
  struct Row {
    QAction* action = nullptr;
    std::shared_ptr<MenuItem> item;
  };

  enum class Rows { every, changed };

  void mirror(const Items& items, Rows rows);
  void appendRow(const std::shared_ptr<MenuItem>& item);
  [[nodiscard]] static bool hasOpenSubmenu(const Row& row);
  void setRow(Row& row, const std::shared_ptr<MenuItem>& item);
  void layOut();
  [[nodiscard]] MenuPopup* submenuOf(const MenuItem& item);
  [[nodiscard]] std::shared_ptr<MenuItem> itemOf(const QAction* action) const;
  [[nodiscard]] bool isOpeningKey(int key) const;
  void pressKey(int key);
  bool choose(const QAction* action);

  MenuPopupOwner& owner_;
  std::shared_ptr<Menu> menu_;
  std::vector<Row> rows_;
  std::map<const Menu*, MenuPopup*> submenus_;
  MarkColumns columns_;
  const QAction* pressed_ = nullptr;
  int openingKey_ = 0;
  bool mirroring_ = false;
};

} // namespace tavrel
