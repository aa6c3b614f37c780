#pragma once

#include "platform/linux/web/WebFetch.h"

#include <QObject>

class QNetworkReply;

namespace tavrel {

/// Collects a download until it is complete, has failed or has become too long.
class WebReply final : public QObject {
  Q_OBJECT

public:
  WebReply(QNetworkReply& reply, qint64 longest);

  void giveUp(const char* why);
  [[nodiscard]] const WebAnswer& answer() const { return answer_; }

Q_SIGNALS:
  void done();

private:
  void checkLength();
  void read();
  void finish();

  QNetworkReply& reply_;
  qint64 longest_;
  WebAnswer answer_;
};

} // namespace tavrel
