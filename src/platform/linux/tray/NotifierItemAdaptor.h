#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QIcon>
#include <QList>

#include <functional>

namespace tavrel {

/// A picture on the bus: ARGB, 32 bits a pixel, in network byte order.
struct NotifierPixmap {
  int width = 0;
  int height = 0;
  QByteArray pixels;
};
using NotifierPixmaps = QList<NotifierPixmap>;

struct NotifierToolTip {
  QString iconName;
  NotifierPixmaps pixmaps;
  QString title;
  QString text;
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& tip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& tip);

/// The item's interface on the bus. Every kind of click opens the menu.
class NotifierItemAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
  Q_PROPERTY(QString Category READ category)
  Q_PROPERTY(QString Id READ id)
  Q_PROPERTY(QString Title READ title)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(int WindowId READ windowId)
  Q_PROPERTY(QString IconThemePath READ none)
  Q_PROPERTY(QString IconName READ none)
  Q_PROPERTY(tavrel::NotifierPixmaps IconPixmap READ pixmaps)
  Q_PROPERTY(QString OverlayIconName READ none)
  Q_PROPERTY(tavrel::NotifierPixmaps OverlayIconPixmap READ noPixmaps)
  Q_PROPERTY(QString AttentionIconName READ none)
  Q_PROPERTY(tavrel::NotifierPixmaps AttentionIconPixmap READ noPixmaps)
  Q_PROPERTY(QString AttentionMovieName READ none)
  Q_PROPERTY(tavrel::NotifierToolTip ToolTip READ toolTip)
  Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)

public:
  NotifierItemAdaptor(QObject* item, std::function<void()> activated);

  void setIcon(const QIcon& icon);

public Q_SLOTS:
  void Activate(int x, int y);
  void ContextMenu(int x, int y);
  void SecondaryActivate(int x, int y);
  void Scroll(int delta, const QString& orientation);

Q_SIGNALS:
  void NewTitle();
  void NewIcon();
  void NewAttentionIcon();
  void NewOverlayIcon();
  void NewToolTip();
  void NewStatus(const QString& status);

private:
  [[nodiscard]] QString id() const { return QStringLiteral("tavrel"); }
  [[nodiscard]] QString title() const { return QStringLiteral("Tavrel"); }
  [[nodiscard]] NotifierPixmaps pixmaps();
  [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
  [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
  [[nodiscard]] int windowId() const { return 0; }
  [[nodiscard]] QString none() const { return {}; }
  [[nodiscard]] NotifierPixmaps noPixmaps() const { return {}; }
  [[nodiscard]] NotifierToolTip toolTip() const { return {{}, {}, title(), {}}; }
  [[nodiscard]] bool itemIsMenu() const { return false; }
  std::function<void()> activated_;
  QIcon icon_;
  NotifierPixmaps pixmaps_; ///< of the icon, made when a panel first reads them
};

} // namespace tavrel

Q_DECLARE_METATYPE(tavrel::NotifierPixmap)
Q_DECLARE_METATYPE(tavrel::NotifierToolTip)
