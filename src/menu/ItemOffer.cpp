#include "menu/ItemOffer.h"

#include "controller/HostContext.h"
#include "menu/ApplicationName.h"
#include "menu/ItemRecord.h"
#include "selection/PrivatePasteboard.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace tavrel {

namespace {

using Types = std::vector<std::string>;

const Types& typesOfKind(const std::string& kind) {
  static const std::map<std::string_view, Types> kinds{
      {"text",
       {pasteboardType::string, pasteboardType::rtf, pasteboardType::rtfd, pasteboardType::html,
        pasteboardType::pdf}},
      {"file/folder", {pasteboardType::filenames, pasteboardType::pathFinderFilenames}},
      {"url", {pasteboardType::url}},
      {"image", {pasteboardType::tiff, pasteboardType::pict}}};
  static const Types none;
  const auto found = kinds.find(kind);
  return found == kinds.end() ? none : found->second;
}

Types typesOfKinds(const PropertyList::Array& kinds) {
  Types types;
  for (const PropertyList& kind : kinds)
    if (const std::string* name = kind.string())
      types.insert(types.end(), typesOfKind(*name).begin(), typesOfKind(*name).end());
  return types;
}

bool isNamed(const PropertyList& invoker, const HostContext& host) {
  const std::string* text = invoker.string();
  return text && applicationName(*text, host.application) == host.hostName;
}

} // namespace

bool isOfferedIn(const HostContext& host, const PropertyList& record) {
  const auto* invokers = record.arrayFor(TVR_MenuItemInvokers);
  return !invokers || invokers->empty() ||
         std::any_of(invokers->begin(), invokers->end(),
                     [&](const PropertyList& each) { return isNamed(each, host); });
}

bool isOfferedForSelection(const PropertyList& record) {
  const auto* kinds = record.arrayFor(TVR_MenuItemSelectionTypes);
  return !kinds || kinds->empty() ||
         firstAvailableType(privatePasteboard(), typesOfKinds(*kinds)).has_value();
}

} // namespace tavrel
