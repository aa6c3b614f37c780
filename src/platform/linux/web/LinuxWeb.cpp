#include "platform/linux/web/LinuxWeb.h"

#include "platform/linux/plists/PropertyListCodec.h"

#include <QLoggingCategory>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(webLog, "tavrel.web")

std::nullopt_t sayWhyNot(const std::string& url, const std::string& problem) {
  qCWarning(webLog, "%s: %s", url.c_str(), problem.c_str());
  return std::nullopt;
}

} // namespace

std::optional<PropertyList> LinuxWeb::dictionaryAt(const std::string& url) {
  const WebAnswer answer = fetchFromWeb(url, limits_);
  if (!answer.problem.empty())
    return sayWhyNot(url, answer.problem);
  DecodedPropertyList decoded =
      decodePropertyList(Bytes(answer.content.begin(), answer.content.end()));
  if (!decoded.value)
    return sayWhyNot(url, decoded.problem);
  if (!decoded.value->dictionary())
    return sayWhyNot(url, "is no dictionary");
  return std::move(decoded.value);
}

} // namespace tavrel
