#include "platform/linux/menus/LevelMetrics.h"

#include "platform/linux/menus/MenuEntryText.h"
#include "platform/linux/menus/MenuStyle.h"

#include <QMenu>
#include <QStyle>
#include <QStyleOptionMenuItem>

namespace tavrel {

namespace {
constexpr int widestTitleInChars = 64; ///< in average characters

/// A hidden menu, for the toolkit to measure entries in.
class MeasuringMenu final : public QMenu {
public:
  explicit MeasuringMenu(const QWidget& sample) {
    setStyle(sample.style());
    setFont(sample.font());
    setProperty(markWidthProperty, sample.property(markWidthProperty));
    setSeparatorsCollapsible(false);
  }

  LevelMetrics measure(const std::vector<const MenuItem*>& items, MarkColumns columns) {
    LevelMetrics metrics;
    for (const MenuItem* item : items)
      showEntry(*addAction(QString()), *item, columns, fontMetrics(),
                item->submenu ? &submenu_ : nullptr);
    metrics.frame = sizeHint().height();
    for (int i = 0; i < actions().size(); ++i) {
      const int height = actionGeometry(actions().at(i)).height();
      metrics.heights[static_cast<std::size_t>(rowKind(*items[static_cast<std::size_t>(i)]))] =
          height;
      metrics.frame -= height;
    }
    metrics.width = sizeHint().width();
    metrics.left = actionGeometry(actions().front()).left();
    metrics.top = actionGeometry(actions().front()).top();
    metrics.arrow = style()->pixelMetric(QStyle::PM_MenuScrollerHeight, nullptr, this);
    QStyleOptionMenuItem option;
    initStyleOption(&option, actions().front());
    metrics.shortcutWidth = option.reservedShortcutWidth;
    return metrics;
  }

private:
  QMenu submenu_;
};
} // namespace

LevelMetrics measureLevel(const LevelRows& rows, const QWidget& sample) {
  return MeasuringMenu(sample).measure(decisiveItems(rows.everyItem(), sample.fontMetrics()),
                                       rows.columns());
}

std::vector<int> rowTops(const LevelRows& rows, const LevelMetrics& metrics) {
  std::vector<int> tops{0};
  tops.reserve(rows.size() + 1);
  for (std::size_t row = 0; row < rows.size(); ++row)
    tops.push_back(tops.back() + metrics.heights[static_cast<std::size_t>(rowKind(*rows.at(row)))]);
  return tops;
}

void showEntry(QAction& action, const MenuItem& item, MarkColumns columns,
               const QFontMetrics& metrics, QMenu* submenu) {
  const bool ticked = item.state == MenuItemState::on;
  action.setSeparator(item.isSeparator);
  action.setText(actionText(item, metrics, widestTitleInChars * metrics.averageCharWidth()));
  action.setIcon(markIcon(columns, ticked ? Tick::present : Tick::absent, item.image));
  action.setCheckable(ticked);
  action.setChecked(ticked);
  action.setMenu(item.isSeparator ? nullptr : submenu);
  action.setEnabled(item.isSeparator || canBeOpened(item) || canBeChosen(item));
}

} // namespace tavrel
