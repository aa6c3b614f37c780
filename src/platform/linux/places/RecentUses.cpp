#include "platform/linux/places/RecentUses.h"

#include <QDateTime>
#include <QXmlStreamReader>

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t mostUses = 20'000;

std::string attribute(const QXmlStreamReader& xml, const char* name) {
  return xml.attributes().value(QLatin1String(name)).toString().toStdString();
}

std::int64_t timeAttribute(const QXmlStreamReader& xml, const char* name) {
  const QString text = xml.attributes().value(QLatin1String(name)).toString();
  const QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
  return time.isValid() ? time.toMSecsSinceEpoch() : 0;
}

void startElement(QXmlStreamReader& xml, std::vector<RecentUse>& uses) {
  const QString name = xml.name().toString();
  if (name == QLatin1String("bookmark")) {
    const std::int64_t when =
        std::max(timeAttribute(xml, "modified"), timeAttribute(xml, "visited"));
    uses.push_back({attribute(xml, "href"), {}, when, false, {}});
  } else if (uses.empty()) {
    return;
  } else if (name == QLatin1String("private")) {
    uses.back().isPrivate = true;
  } else if (name == QLatin1String("application")) {
    uses.back().applications.push_back(
        {attribute(xml, "name"), attribute(xml, "exec"), timeAttribute(xml, "modified")});
  } else if (name == QLatin1String("title")) {
    uses.back().title = xml.readElementText(QXmlStreamReader::SkipChildElements).toStdString();
  }
}

std::string readUses(QXmlStreamReader& xml, std::vector<RecentUse>& uses) {
  while (!xml.atEnd() && uses.size() < mostUses) {
    const QXmlStreamReader::TokenType token = xml.readNext();
    if (token == QXmlStreamReader::DTD && !xml.entityDeclarations().isEmpty())
      return "declares entities";
    if (token == QXmlStreamReader::StartElement)
      startElement(xml, uses);
  }
  return xml.hasError() ? "malformed in line " + std::to_string(xml.lineNumber()) : std::string();
}

} // namespace

RecentUses parseRecentUses(std::string_view text) {
  QXmlStreamReader xml(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
  RecentUses found;
  found.problem = readUses(xml, found.uses);
  std::ranges::stable_sort(found.uses, std::ranges::greater(), &RecentUse::when);
  return found;
}

} // namespace tavrel
