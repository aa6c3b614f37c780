// measure_messages TURNS COUNT FILE
// Posts so many notifications as the contextual-menu plug-in does, and one more that makes whoever
// hears them make the file. Prints median, least and greatest of the milliseconds until it is
// there.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

void post(const char* name, const QVariantMap& details) {
  QDBusMessage message = QDBusMessage::createSignal(
      QStringLiteral("/qorvane/tavrel/DistributedNotifications"),
      QStringLiteral("qorvane.tavrel.DistributedNotifications"), QStringLiteral("Posted"));
  message << QStringLiteral("qorvane.tavrel.cm") << QString::fromLatin1(name) << details;
  QDBusConnection::sessionBus().send(message);
}

// What is cheap to carry out: the way of a message is measured, and not where it leads.
void postAll(int count, const QString& file) {
  for (int number = 0; number < count; ++number)
    post("execScript", {{QStringLiteral("hostName"), QStringLiteral("Editor")},
                        {QStringLiteral("number"), number}});
  post("execScript",
       {{QStringLiteral("file"), file},
        {QStringLiteral("sourceCode"), QStringLiteral("do shell script \": >'%1'\"").arg(file)}});
}

double turn(int count, const QString& file) {
  QFile::remove(file);
  QElapsedTimer time;
  time.start();
  postAll(count, file);
  while (!QFile::exists(file) && time.elapsed() < 60000)
    QThread::usleep(200);
  return static_cast<double>(time.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc != 4) {
    std::fputs("usage: measure_messages TURNS COUNT FILE\n", stderr);
    return 2;
  }
  std::vector<double> times;
  for (int number = 0; number <= std::atoi(argv[1]); ++number)
    times.push_back(turn(std::atoi(argv[2]), QString::fromLocal8Bit(argv[3])));
  times.erase(times.begin()); // the first one warms up
  std::sort(times.begin(), times.end());
  std::printf("%.2f %.2f %.2f\n", times[times.size() / 2], times.front(), times.back());
}
