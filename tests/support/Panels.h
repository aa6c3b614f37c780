#pragma once

#include "support/Desktop.h"

#include <QDir>
#include <QFile>

#include <optional>

namespace tavrel {

inline QString writtenConfig(const QString& name, const QByteArray& content) {
  const QString path = qEnvironmentVariable("XDG_CONFIG_HOME") + QLatin1Char('/') + name;
  QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
  QFile file(path);
  if (file.open(QIODevice::WriteOnly))
    file.write(content);
  return path;
}

/// A panel at the bottom of the screen with an XEmbed tray.
class TrayPanel {
  Program panel_{QStringLiteral("tint2"),
                 {QStringLiteral("-c"), writtenConfig(QStringLiteral("tint2/test"), config)}};
  static constexpr const char* config = "rounded = 0\n"
                                        "background_color = #303030 100\n"
                                        "panel_items = S\n"
                                        "panel_position = bottom left horizontal\n"
                                        "panel_size = 100% 30\n"
                                        "panel_background_id = 1\n"
                                        "systray_icon_size = 22\n";
};

/// A tray at the top of the screen that gives an icon no more room than it asks for.
class PlainTrayPanel {
  Program panel_{QStringLiteral("trayer"),
                 QStringLiteral("--edge top --align left --widthtype request --height 28")
                     .split(QLatin1Char(' '))};
};

/// A panel at the top of the screen that shows notifier items.
class HostPanel {
public:
  HostPanel() { panel_.emplace(QStringLiteral("xfce4-panel"), QStringList{}); }

private:
  static constexpr const char* config = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";
  QString config_ =
      writtenConfig(QStringLiteral("xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"), config);
  std::optional<Program> panel_;
};

} // namespace tavrel
