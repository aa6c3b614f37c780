#include "platform/linux/web/WebFetch.h"

#include "platform/linux/web/WebReply.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>

#include <future>
#include <memory>
#include <thread>

namespace tavrel {

namespace {

constexpr const char* timeoutProblem = "does not come in time";
constexpr int redirectionLimit = 10;
// On top of the timeout of the download, because looking for a proxy blocks without one.
constexpr std::chrono::milliseconds grace{500};

QUrl webAddress(const std::string& text) {
  const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
  const bool isOfTheWeb = url.scheme() == "http" || url.scheme() == "https";
  return isOfTheWeb && !url.host().isEmpty() ? url : QUrl();
}

QNetworkRequest requestFor(const QUrl& url) {
  QNetworkRequest request(url);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(redirectionLimit);
  // No compression: a small answer could expand to any length.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setHeader(QNetworkRequest::UserAgentHeader, "Tavrel");
  return request;
}

WebAnswer download(const QUrl& url, const WebLimits& limits) {
  QNetworkAccessManager manager;
  const std::unique_ptr<QNetworkReply> reply(manager.get(requestFor(url)));
  WebReply collected(*reply, limits.bytes);
  QEventLoop loop;
  QObject::connect(&collected, &WebReply::done, &loop, &QEventLoop::quit, Qt::QueuedConnection);
  QTimer::singleShot(limits.time, &collected, [&collected] { collected.giveUp(timeoutProblem); });
  loop.exec();
  return collected.answer();
}

} // namespace

WebAnswer fetchFromWeb(const std::string& text, const WebLimits& limits) {
  const QUrl url = webAddress(text);
  if (url.isEmpty())
    return {{}, "is no web address"};
  std::packaged_task<WebAnswer()> task([url, limits] { return download(url, limits); });
  std::future<WebAnswer> answer = task.get_future();
  std::thread(std::move(task)).detach();
  if (answer.wait_for(limits.time + grace) != std::future_status::ready)
    return {{}, timeoutProblem};
  return answer.get();
}

} // namespace tavrel
