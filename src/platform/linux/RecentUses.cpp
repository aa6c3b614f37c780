#include "platform/linux/RecentUses.h"

#include "platform/linux/BoundedFile.h"
#include "platform/linux/ItemKind.h"

#include <QDateTime>
#include <QLoggingCategory>
#include <QXmlStreamReader>

#include <algorithm>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(recentLog, "tavrel.recent")
constexpr std::size_t largestBookmarks = std::size_t{16} << 20;
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

/// What is wrong with the text, in one clause; empty when nothing is.
std::string readUses(const std::string& text, std::vector<RecentUse>& uses) {
  QXmlStreamReader xml(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
  while (!xml.atEnd() && uses.size() < mostUses) {
    const QXmlStreamReader::TokenType token = xml.readNext();
    if (token == QXmlStreamReader::DTD && !xml.entityDeclarations().isEmpty())
      return "declares entities";
    if (token == QXmlStreamReader::StartElement)
      startElement(xml, uses);
  }
  return xml.hasError() ? "malformed in line " + std::to_string(xml.lineNumber()) : std::string();
}

void sayTrouble(const std::string& path, const std::string& trouble) {
  qCWarning(recentLog, "%s: %s", path.c_str(), trouble.c_str());
}

} // namespace

std::vector<RecentUse> readRecentUses(const std::string& path) {
  std::vector<RecentUse> uses;
  if (!fileStatus(path, LinkMode::follow))
    return uses;
  const auto text = readFile(path, largestBookmarks);
  const std::string trouble = text ? readUses(*text, uses) : "cannot be read or is too large";
  if (!trouble.empty())
    sayTrouble(path, trouble);
  std::ranges::stable_sort(uses, std::ranges::greater(), &RecentUse::when);
  return uses;
}

} // namespace tavrel
