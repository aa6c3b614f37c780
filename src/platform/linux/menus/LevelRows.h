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

/// The rows of one level as it opened, for both states of the Option key. A level without any has
/// one blank row, so that an empty menu can be seen. Needs a few bytes for each row besides the
/// entry.
class LevelRows {
public:
  LevelRows() = default;
  explicit LevelRows(const Menu& menu);

  void show(OptionKey option) { option_ = option; }

  [[nodiscard]] std::size_t size() const { return places().size(); }
  [[nodiscard]] const std::shared_ptr<MenuItem>& at(std::size_t row) const {
    return items_[places()[row]];
  }
  [[nodiscard]] std::vector<std::shared_ptr<MenuItem>> slice(std::size_t first,
                                                             std::size_t count) const;
  /// Whether a row can be opened or chosen, as separators and headings cannot.
  [[nodiscard]] bool canBeUsed(std::size_t row) const;

  /// The mark columns that any row needs; the same for both states, so that nothing moves when
  /// Option goes down.
  [[nodiscard]] MarkColumns columns() const { return columns_; }
  /// Whether the two states show different rows.
  [[nodiscard]] bool hasAlternates() const { return up_ != down_; }
  /// Every entry that shows in either state; some appear twice.
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
