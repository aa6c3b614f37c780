#include "platform/linux/images/IconTheme.h"

#include <QIcon>
#include <QSettings>
#include <QStandardPaths>

namespace tavrel {

namespace {
bool isReal(const QString& theme) {
  return !theme.isEmpty() && theme != QLatin1String("hicolor");
}
} // namespace

QString chosenIconTheme(const QString& found, const QString& configurationFolder) {
  if (isReal(found))
    return found;
  for (const char* file : {"/gtk-4.0/settings.ini", "/gtk-3.0/settings.ini"}) {
    const QSettings settings(configurationFolder + QLatin1String(file), QSettings::IniFormat);
    const QString named = settings.value("Settings/gtk-icon-theme-name").toString();
    if (isReal(named))
      return named;
  }
  return QStringLiteral("Adwaita");
}

void ensureIconTheme() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  QIcon::setThemeName(chosenIconTheme(QIcon::themeName(), folder));
  if (!isReal(QIcon::fallbackThemeName()))
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
}

} // namespace tavrel
