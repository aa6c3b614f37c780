#include "platform/linux/images/DrawingReferences.h"

#include <QXmlStreamReader>

namespace tavrel {

namespace {
bool isOutside(const QXmlStreamAttribute& attribute) {
  const auto target = attribute.value().trimmed();
  const bool inside = target.startsWith(u'#') || target.startsWith(QLatin1String("data:"));
  return attribute.name() == QLatin1String("href") && !inside;
}
} // namespace

bool showsOtherFiles(const QByteArray& drawing) {
  QXmlStreamReader reader(drawing);
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement ||
        reader.name() != QLatin1String("image"))
      continue;
    for (const QXmlStreamAttribute& attribute : reader.attributes())
      if (isOutside(attribute))
        return true;
  }
  return false;
}

} // namespace tavrel
