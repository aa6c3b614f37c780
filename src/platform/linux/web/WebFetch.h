#pragma once

#include <QByteArray>

#include <chrono>
#include <string>

namespace tavrel {

/// How long and how much a download may be.
struct WebLimits {
  std::chrono::milliseconds time{5000};
  qint64 bytes = 1 << 20;
};

/// What came of a download: its content, or the reason why there is none.
struct WebAnswer {
  QByteArray content;
  std::string problem{}; ///< one clause, as "is too long"; empty when there is a content
};

/// Downloads what is at a web address. Redirections are followed, to safer places only; a server
/// that cannot show who it is gets no question. Serves no event of the calling thread, and comes
/// back in time whatever the network does.
[[nodiscard]] WebAnswer fetchFromWeb(const std::string& url, const WebLimits& limits);

} // namespace tavrel
