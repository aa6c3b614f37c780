#pragma once

#include <QByteArray>

#include <chrono>
#include <string>

namespace tavrel {

/// Timeout and largest size of a download.
struct WebLimits {
  std::chrono::milliseconds time{5000};
  qint64 bytes = 1 << 20;
};

/// The result of a download: its content, or the reason why there is none.
struct WebAnswer {
  QByteArray content;
  std::string problem{}; ///< one clause, as "is too long"; empty when there is a content
};

/// Downloads what is at an http or https URL. Redirections are followed, but not from https to
/// http; a server whose certificate is not valid gets no request. Works on a thread of its own:
/// runs no event of the calling thread, and returns before the timeout whatever the network does.
[[nodiscard]] WebAnswer fetchFromWeb(const std::string& url, const WebLimits& limits);

} // namespace tavrel
