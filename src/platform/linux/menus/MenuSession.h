#pragma once

#include "platform/MenuActionTarget.h"
#include "platform/Presenter.h"
#include "platform/linux/menus/EntryDescription.h"
#include "platform/linux/menus/MenuPopup.h"
#include "platform/linux/menus/MenuStyle.h"
#include "platform/linux/menus/TypeAhead.h"
#include "platform/linux/x11/gestures/MenuKeyForwarder.h"

#include <QObject>
#include <QTimer>

class QKeyEvent;

namespace tavrel {

/// One menu on the screen: from before it opens until the chosen entry has been carried out.
class MenuSession final : public QObject, private MenuPopupOwner {
public:
  MenuSession(Menu& menu, MenuFont font, Localize localize,
              std::size_t longestPlain = longestPlainLevel);
  ~MenuSession() override;

  /// Shows the menu below an anchor (a point is an anchor without a size) or, without room there,
  /// above it; returns when it is gone from the screen and its grabs are released.
  void run(const QRect& anchor);
  /// Has `target` carry out the chosen entry, then notifies the delegate of every level that it has
  /// closed.
  void finish(MenuActionTarget* target);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void submenuOpens(MenuPopup& level) override;
  void submenuCloses(MenuPopup& level) override;
  void entryChosen(std::shared_ptr<MenuItem> item) override;
  std::string localized(const std::string& text) override { return localize_(text); }

  void openLevel(MenuPopup& level);
  void notifyClosedLevels();
  void setOption(OptionKey option);
  void applyOption();
  [[nodiscard]] bool typeAhead(const QKeyEvent& key);
  void grabInput();

  Localize localize_;
  MenuStyle style_;
  MenuPopup root_;
  std::vector<MenuPopup*> levels_;                 ///< open ones, outermost first
  std::vector<std::shared_ptr<Menu>> closedMenus_; ///< delegates to notify, innermost first
  std::shared_ptr<MenuItem> chosen_;
  TypeAhead typeAhead_;
  OptionKey option_ = OptionKey::up;
  QTimer grabTimer_;
  std::optional<MenuKeyForwarder> keyForwarder_; ///< while the menu is open
};

} // namespace tavrel
