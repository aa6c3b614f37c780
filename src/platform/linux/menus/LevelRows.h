#pragma once

#include "platform/common/MenuRows.h"
#include "platform/linux/images/ImageIcon.h"

#include <memory>
#include <vector>

namespace tavrel {

/// Whether an entry's submenu opens.
[[nodiscard]] bool canBeOpened(const MenuItem& item);
/// Whether choosing an entry does something.
[[nodiscard]] bool canBeChosen(const MenuItem& item);

/// The rows of one level as they were when it opened, for both states of the Option key, and one
/// blank row where there are none, so that an empty menu can be seen. Costs a few bytes a row
/// besides the entry itself.
class LevelRows {
public:
  LevelRows() = default;
  explicit LevelRows(const Menu& menu);

  void show(OptionKey option) { option_ = option; }

  [[nodiscard]] std::size_t size() const { return places().size(); }
  [[nodiscard]] const std::shared_ptr<MenuItem>& at(std::size_t row) const {
    return items_[places()[row]];
  }
  [[nodiscard]] std::vector<std::shared_ptr<MenuItem>> part(std::size_t first,
                                                            std::size_t count) const;
  /// Whether a row is more than a line or a heading.
  [[nodiscard]] bool canBeUsed(std::size_t row) const;

  /// Those that any row needs, the same for both states, so that nothing moves as Option goes down.
  [[nodiscard]] MarkColumns columns() const { return columns_; }
  /// Whether Option changes anything.
  [[nodiscard]] bool hasAlternates() const { return up_ != down_; }
  /// Every entry that shows in either state, once or twice.
  [[nodiscard]] std::vector<const MenuItem*> everyItem() const;

private:
  using Places = std::vector<std::uint32_t>;
  [[nodiscard]] const Places& places() const { return option_ == OptionKey::up ? up_ : down_; }
  [[nodiscard]] Places shownPlaces(const Menu& menu, OptionKey option) const;

  std::vector<std::shared_ptr<MenuItem>> items_;
  Places up_;
  Places down_;
  MarkColumns columns_;
  OptionKey option_ = OptionKey::up;
};

} // namespace tavrel
