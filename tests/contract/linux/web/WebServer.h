#pragma once

#include "support/TemporaryFolder.h"

#include <QProcess>

namespace tavrel {

/// Whether a server can show who it is. The certificate is made for each test.
enum class Certificate { none, ofItsOwn };

/// The server of tests/support/web_server.py, ended with the test.
class WebServer {
public:
  explicit WebServer(Certificate certificate = Certificate::none) {
    QStringList arguments{QString::fromStdString(folder.path())};
    if (certificate == Certificate::ofItsOwn)
      arguments << makeCertificate();
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(TAVREL_FIXTURES "/../support/web_server.py"), arguments);
    while (!process_.canReadLine() && process_.waitForReadyRead(20000)) {
    }
    ports_ = process_.readLine().trimmed().split(' ');
  }
  ~WebServer() {
    process_.closeWriteChannel();
    if (!process_.waitForFinished(3000))
      process_.kill();
    process_.waitForFinished(3000);
  }
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  [[nodiscard]] std::string http(const std::string& path) const {
    return "http://localhost:" + ports_.value(0).toStdString() + path;
  }
  [[nodiscard]] std::string https(const std::string& path) const {
    return "https://localhost:" + ports_.value(1).toStdString() + path;
  }
  [[nodiscard]] std::string certificateFile() const { return folder.path("certificate.pem"); }

  TemporaryFolder folder;

private:
  [[nodiscard]] QStringList makeCertificate() const {
    const QString certificate = QString::fromStdString(certificateFile());
    const QString key = QString::fromStdString(folder.path("key.pem"));
    QProcess openssl;
    openssl.setProcessChannelMode(QProcess::MergedChannels);
    openssl.start(
        QStringLiteral("openssl"),
        QStringLiteral("req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost "
                       "-addext subjectAltName=DNS:localhost")
                .split(QLatin1Char(' ')) +
            QStringList{QStringLiteral("-out"), certificate, QStringLiteral("-keyout"), key});
    openssl.waitForFinished(20000);
    return {certificate, key};
  }

  QProcess process_;
  QByteArrayList ports_;
};

} // namespace tavrel
