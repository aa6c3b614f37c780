#pragma once

#include <QProxyStyle>

namespace tavrel {

/// The name of a menu's property: the width of the icons of its entries, which need not be square.
inline constexpr const char* markWidthProperty = "tavrelMarkWidth";

/// The desktop's style with what our menus need: long ones scroll, typing finds an entry, Alt does
/// not close them, and a ticked entry shows its tick beside its icon (which brings the tick along).
class MenuStyle final : public QProxyStyle {
public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
};

} // namespace tavrel
