#include "platform/linux/web/WebReply.h"

#include <QNetworkReply>

namespace tavrel {

WebReply::WebReply(QNetworkReply& reply, qint64 longest) : reply_(reply), longest_(longest) {
  reply_.setReadBufferSize(longest + 1);
  connect(&reply_, &QNetworkReply::metaDataChanged, this, [this] { checkLength(); });
  connect(&reply_, &QNetworkReply::readyRead, this, [this] { read(); });
  connect(&reply_, &QNetworkReply::finished, this, [this] { finish(); });
}

void WebReply::giveUp(const char* why) {
  if (answer_.problem.empty())
    answer_.problem.assign(why);
  reply_.abort();
}

void WebReply::checkLength() {
  if (reply_.header(QNetworkRequest::ContentLengthHeader).toLongLong() > longest_)
    giveUp("is too long");
}

void WebReply::read() {
  answer_.content += reply_.readAll();
  if (answer_.content.size() > longest_)
    giveUp("is too long");
}

void WebReply::finish() {
  if (reply_.error() == QNetworkReply::NoError)
    read();
  else if (answer_.problem.empty())
    answer_.problem = reply_.errorString().toStdString();
  Q_EMIT done();
}

} // namespace tavrel
