#pragma once

#include "platform/Menu.h"

#include <cstdint>
#include <vector>

namespace tavrel {

/// Whether the Option key is held while a menu is open.
enum class OptionKey { up, down };

/// An entry stands in for the one right before it while Option is held, when it is marked as an
/// alternate, has the same key equivalent and another modifier mask.
[[nodiscard]] bool isAlternateOf(const MenuItem& alternate, const MenuItem& partner);

/// The entries to show, in order: hidden ones left out, and of each pair of partners the one that
/// the Option key asks for. An alternate without a partner shows like any other entry.
[[nodiscard]] std::vector<const MenuItem*> visibleRows(const Menu& menu, OptionKey option);

/// The same as their places in the menu.
[[nodiscard]] std::vector<std::uint32_t> visiblePlaces(const Menu& menu, OptionKey option);

/// How a row stands in a menu whose toolkit swaps alternates by itself.
enum class RowRole { plain, alternate };

struct NativeRow {
  std::shared_ptr<MenuItem> item;
  RowRole role = RowRole::plain;
};

/// The same rows for such a toolkit: hidden ones left out, and an alternate only marked as one
/// where it follows a partner that shows.
[[nodiscard]] std::vector<NativeRow> nativeRows(const Menu& menu);

} // namespace tavrel
