#include "platform/linux/tray/NotifierItemAdaptor.h"

#include <QDBusMetaType>
#include <QImage>
#include <QTimer>
#include <QtEndian>

namespace tavrel {

namespace {
constexpr int panelSizes[] = {16, 22, 24, 32, 48, 64};

void registerTypes() {
  qDBusRegisterMetaType<NotifierPixmap>();
  qDBusRegisterMetaType<NotifierPixmaps>();
  qDBusRegisterMetaType<NotifierToolTip>();
}

NotifierPixmap notifierPixmap(const QIcon& icon, int size) {
  QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
  image.convertTo(QImage::Format_ARGB32);
  NotifierPixmap pixmap{image.width(), image.height(), {}};
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const quint32*>(image.constScanLine(y));
    QByteArray bytes(qsizetype{4} * image.width(), Qt::Uninitialized);
    qToBigEndian<quint32>(line, image.width(), bytes.data());
    pixmap.pixels += bytes;
  }
  return pixmap;
}
} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
  argument.beginStructure();
  argument << pixmap.width << pixmap.height << pixmap.pixels;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
  argument.beginStructure();
  argument >> pixmap.width >> pixmap.height >> pixmap.pixels;
  argument.endStructure();
  return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& tip) {
  argument.beginStructure();
  argument << tip.iconName << tip.pixmaps << tip.title << tip.text;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& tip) {
  argument.beginStructure();
  argument >> tip.iconName >> tip.pixmaps >> tip.title >> tip.text;
  argument.endStructure();
  return argument;
}

NotifierItemAdaptor::NotifierItemAdaptor(QObject* item, std::function<void()> activated)
    : QDBusAbstractAdaptor(item), activated_(std::move(activated)) {
  registerTypes();
}

/// The call is answered before the menu opens: the host would wait until the user closes it.
void NotifierItemAdaptor::Activate(int, int) {
  QTimer::singleShot(0, this, [this] { activated_(); });
}

void NotifierItemAdaptor::ContextMenu(int x, int y) {
  Activate(x, y);
}

void NotifierItemAdaptor::SecondaryActivate(int x, int y) {
  Activate(x, y);
}

void NotifierItemAdaptor::Scroll(int, const QString&) {}

void NotifierItemAdaptor::setIcon(const QIcon& icon) {
  icon_ = icon;
  pixmaps_.clear();
  Q_EMIT NewIcon();
}

NotifierPixmaps NotifierItemAdaptor::pixmaps() {
  if (pixmaps_.isEmpty())
    for (const int size : panelSizes)
      pixmaps_.append(notifierPixmap(icon_, size));
  return pixmaps_;
}

} // namespace tavrel
