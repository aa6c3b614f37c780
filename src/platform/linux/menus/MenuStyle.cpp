#include "platform/linux/menus/MenuStyle.h"

#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>

namespace tavrel {

namespace {
constexpr int aroundMarks = 4; ///< as menus leave beside a square icon, too

int markWidth(const QWidget* menu) {
  return menu ? menu->property(markWidthProperty).toInt() : 0;
}

/// The entry without the style's own check box, with room for its icon.
QStyleOptionMenuItem plainEntry(const QStyleOptionMenuItem& entry, const QWidget* menu) {
  QStyleOptionMenuItem plain(entry);
  plain.checkType = QStyleOptionMenuItem::NotCheckable;
  plain.menuHasCheckableItems = false;
  plain.checked = false;
  plain.maxIconWidth = std::max(plain.maxIconWidth, markWidth(menu) + aroundMarks);
  return plain;
}

/// In the colour of the text, translucent: the usual one cannot be seen on a dark background.
void drawSeparator(const QStyleOptionMenuItem& entry, QPainter& painter) {
  QColor colour = entry.palette.color(QPalette::Active, QPalette::Text);
  colour.setAlphaF(0.25F);
  const QRect& room = entry.rect;
  painter.fillRect(room.left() + 5, room.center().y(), room.width() - 10, 1, colour);
}
} // namespace

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
  switch (hint) {
  case SH_Menu_Scrollable:
  case SH_Menu_SpaceActivatesItem:
    return 1;
  case SH_Menu_KeyboardSearch: // it also matches letters that are not next to each other
  case SH_MenuBar_AltKeyNavigation:
  case SH_EtchDisabledText:
  case SH_DitherDisabledText:
    return 0;
  default:
    return QProxyStyle::styleHint(hint, option, widget, returnData);
  }
}

/// Styles read this size to draw the icon of an entry, with the entry as option. Menus read it,
/// too, for the height of rows and without an entry: there it stays as it is.
int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  const bool drawsEntry = qstyleoption_cast<const QStyleOptionMenuItem*>(option) != nullptr;
  return metric == PM_SmallIconSize && drawsEntry ? std::max(usual, markWidth(widget)) : usual;
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element != CE_MenuItem || !entry)
    return QProxyStyle::drawControl(element, option, painter, widget);
  if (entry->menuItemType == QStyleOptionMenuItem::Separator)
    return drawSeparator(*entry, *painter);
  const QStyleOptionMenuItem plain = plainEntry(*entry, widget);
  QProxyStyle::drawControl(element, &plain, painter, widget);
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
  const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (type != CT_MenuItem || !entry)
    return QProxyStyle::sizeFromContents(type, option, size, widget);
  const QStyleOptionMenuItem plain = plainEntry(*entry, widget);
  return QProxyStyle::sizeFromContents(type, &plain, size, widget);
}

} // namespace tavrel
