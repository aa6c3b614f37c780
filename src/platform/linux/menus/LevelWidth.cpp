#include "platform/linux/menus/LevelWidth.h"

#include "platform/linux/menus/MenuEntryText.h"

#include <QFontMetrics>

#include <algorithm>
#include <array>

namespace tavrel {

namespace {
constexpr std::size_t candidateCount = 12; ///< several, because the estimate ignores kerning

/// Estimates the width of titles by adding up a width for each byte of UTF-8: good enough to choose
/// the titles that may be the widest.
class WidthEstimate {
public:
  explicit WidthEstimate(const QFontMetrics& metrics) : level_(metrics.height()) {
    for (std::size_t byte = 0; byte < advances_.size(); ++byte)
      advances_[byte] = byte < 0x80   ? metrics.horizontalAdvance(QChar(static_cast<ushort>(byte)))
                        : byte < 0xC0 ? 0 // a further byte of a character
                        : byte < 0xE0 ? metrics.averageCharWidth()
                                      : metrics.height();
  }

  [[nodiscard]] int of(const MenuItem& item) const {
    int width = item.indentation * level_;
    for (const char byte : item.title)
      width += advances_[static_cast<unsigned char>(byte)];
    return width;
  }

private:
  std::array<int, 256> advances_{};
  int level_;
};

struct Estimated {
  int width;
  const MenuItem* item;
};

void keepWidest(std::vector<Estimated>& items) {
  const std::size_t kept = std::min(candidateCount, items.size());
  std::partial_sort(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(kept), items.end(),
                    [](const auto& a, const auto& b) { return a.width > b.width; });
  items.resize(kept);
}
} // namespace

RowKind rowKind(const MenuItem& item) {
  if (item.isSeparator)
    return RowKind::line;
  return item.image || item.state == MenuItemState::on ? RowKind::marked : RowKind::plain;
}

std::vector<const MenuItem*> decisiveItems(const std::vector<const MenuItem*>& items,
                                           const QFontMetrics& metrics) {
  const WidthEstimate estimate(metrics);
  std::vector<Estimated> titles;
  std::vector<Estimated> shortcuts;
  std::array<const MenuItem*, 3> kinds{};
  titles.reserve(items.size());
  for (const MenuItem* item : items) {
    titles.push_back({estimate.of(*item), item});
    if (!item->keyEquivalent.empty())
      shortcuts.push_back({metrics.horizontalAdvance(entryShortcut(*item)), item});
    if (auto& first = kinds[static_cast<std::size_t>(rowKind(*item))]; !first)
      first = item;
  }
  keepWidest(titles);
  keepWidest(shortcuts);
  std::vector<const MenuItem*> decisive;
  for (const auto& group : {titles, shortcuts})
    for (const Estimated& each : group)
      decisive.push_back(each.item);
  std::copy_if(kinds.begin(), kinds.end(), std::back_inserter(decisive),
               [](const MenuItem* item) { return item != nullptr; });
  return decisive;
}

} // namespace tavrel
