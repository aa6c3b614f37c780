#include "platform/common/ItemFacts.h"

namespace tavrel {

namespace {

std::uint32_t flagIf(bool condition, std::uint32_t flag) {
  return condition ? flag : 0;
}

std::uint32_t kindFlags(const ItemFacts& facts) {
  if (facts.isSymlink)
    return itemFlag::symlink;
  return flagIf(!facts.isDirectory, itemFlag::plainFile) |
         flagIf(facts.isDirectory, itemFlag::container) |
         flagIf(facts.isPackage, itemFlag::package) |
         flagIf(isAliasFile(facts), itemFlag::aliasFile) |
         flagIf(facts.isApplication, itemFlag::nativeApplication) |
         flagIf(facts.isApplication && facts.isScriptable, itemFlag::scriptableApplication);
}

} // namespace

std::uint32_t itemFlags(const ItemFacts& facts) {
  return kindFlags(facts) | flagIf(facts.isHidden, itemFlag::invisible);
}

} // namespace tavrel
