#pragma once

class QString;

namespace tavrel {

/// The icon theme to use where the toolkit found `found`: that one when it is a real theme; else
/// the one that GTK's settings in the configuration folder name; else "Adwaita". "hicolor" is no
/// real theme, only what all others build on.
[[nodiscard]] QString chosenIconTheme(const QString& found, const QString& configurationFolder);

/// Sets the chosen theme, with Adwaita behind it, for the whole process.
void ensureIconTheme();

} // namespace tavrel
