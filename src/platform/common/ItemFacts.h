#pragma once

#include "platform/Files.h"

#include <cstdint>

namespace tavrel {

/// What a desktop that knows a file by separate facts says of it.
struct ItemFacts {
  bool isDirectory = false;
  bool isPackage = false;
  bool isSymlink = false;
  bool isAlias = false; ///< also said of symbolic links
  bool isHidden = false;
  bool isApplication = false;
  bool isScriptable = false;
};

/// The same as bits of `itemFlag`. A symbolic link is nothing else besides, but may be invisible.
[[nodiscard]] std::uint32_t itemFlags(const ItemFacts& facts);

/// Whether the file is an alias that holds its target in itself, as no symbolic link does.
[[nodiscard]] inline bool isAliasFile(const ItemFacts& facts) {
  return facts.isAlias && !facts.isSymlink;
}

} // namespace tavrel
