#include "menu/HidingRule.h"

#include "base/Format.h"
#include "menu/ItemOffer.h"
#include "menu/ItemRecord.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

void append(std::string& list, const std::string& name) {
  list.append(list.empty() ? "" : ", ").append(name);
}

std::string namesIn(const PropertyList& record, const char* key) {
  std::string names;
  if (const PropertyList::Array* values = record.arrayFor(key))
    for (const PropertyList& value : *values)
      append(names, value.string() ? *value.string() : "(no text)");
  return names;
}

std::string selectedTypes() {
  std::string types;
  for (const std::string& type : privatePasteboard().types())
    append(types, type);
  return types.empty() ? "nothing" : types;
}

} // namespace

HidingRule hidingRule(const HostContext& host, const PropertyList& record) {
  if (!isOfferedIn(host, record))
    return HidingRule::otherApplication;
  return isOfferedForSelection(record) ? HidingRule::none : HidingRule::otherSelection;
}

std::string hidingReason(HidingRule rule, const std::string& applicationName,
                         const PropertyList& record) {
  switch (rule) {
  case HidingRule::none:
    return "by no rule";
  case HidingRule::otherApplication:
    return filledInOrder("it is offered in %@ only, and \"%@\" is in front",
                         {namesIn(record, TVR_MenuItemInvokers), applicationName});
  case HidingRule::otherSelection:
    return filledInOrder("it is offered for %@ only, and the selection holds %@",
                         {namesIn(record, TVR_MenuItemSelectionTypes), selectedTypes()});
  }
  return {};
}

} // namespace tavrel
