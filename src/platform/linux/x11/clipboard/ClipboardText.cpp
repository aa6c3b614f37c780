#include "platform/linux/x11/clipboard/ClipboardText.h"

#include "base/Utf8.h"

#include <QString>

namespace tavrel {

namespace {

std::string_view viewOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool hasMark(const Bytes& bytes) {
  return bytes.size() >= 2 &&
         ((bytes[0] == 0xFF && bytes[1] == 0xFE) || (bytes[0] == 0xFE && bytes[1] == 0xFF));
}

std::string utf8OfUtf16(const Bytes& bytes, std::size_t from, bool bigEndian) {
  QString text;
  for (std::size_t at = from; at + 1 < bytes.size(); at += 2)
    text += QChar(bigEndian ? bytes[at] << 8 | bytes[at + 1] : bytes[at + 1] << 8 | bytes[at]);
  return text.toStdString();
}

std::string withoutZeros(std::string text) {
  text.resize(text.find_last_not_of('\0') + 1);
  return text;
}

} // namespace

std::string clipboardText(const Bytes& bytes, std::string_view type) {
  if (hasMark(bytes))
    return withoutZeros(utf8OfUtf16(bytes, 2, bytes[0] == 0xFE));
  const std::string_view text = viewOf(bytes);
  if (type != "STRING" && isUtf8(text))
    return withoutZeros(std::string(text));
  return withoutZeros(
      QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())).toStdString());
}

std::string clipboardTextUtf16(const Bytes& bytes) {
  if (hasMark(bytes))
    return clipboardText(bytes, {});
  return withoutZeros(utf8OfUtf16(bytes, 0, false));
}

Bytes latin1OfText(std::string_view utf8) {
  const QByteArray bytes =
      QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())).toLatin1();
  return {bytes.begin(), bytes.end()};
}

std::vector<std::string> urlsOfList(std::string_view text) {
  std::vector<std::string> urls;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
      line.remove_suffix(1);
    if (!line.empty() && !line.starts_with('#') && line.find(':') != line.npos)
      urls.emplace_back(line);
  }
  return urls;
}

} // namespace tavrel
