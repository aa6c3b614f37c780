// The least a program can be that hears the notifications: it takes their details apart and makes
// the file that the last one names.

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>

namespace {

class Receiver final : public QObject {
  Q_OBJECT

public:
  Q_SLOT void hear(const QDBusMessage& message) {
    const auto details = qdbus_cast<QVariantMap>(message.arguments().at(2));
    const QString file = details.value(QStringLiteral("file")).toString();
    if (!file.isEmpty())
      (void)QFile(file).open(QFile::WriteOnly);
  }
};

} // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  Receiver receiver;
  QDBusConnection::sessionBus().connect(
      {}, QStringLiteral("/qorvane/tavrel/DistributedNotifications"),
      QStringLiteral("qorvane.tavrel.DistributedNotifications"), QStringLiteral("Posted"),
      &receiver, SLOT(hear(QDBusMessage)));
  QFile(QString::fromLocal8Bit(argv[1])).open(QFile::WriteOnly);
  return QCoreApplication::exec();
}

#include "BareReceiver.moc"
