#pragma once

#include "platform/Menu.h"

#include <string>
#include <utility>

namespace tavrel {

/// A plain, enabled entry.
inline MenuItem entry(std::string title) {
  MenuItem item;
  item.title = std::move(title);
  return item;
}

} // namespace tavrel
