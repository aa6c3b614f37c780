#pragma once

#include "base/PropertyList.h"

#include <string>

namespace tavrel {

struct HostContext;

/// The rule by which a record is not offered now.
enum class HidingRule { none, otherApplication, otherSelection };

/// For a record under the application in front and for what is selected now.
[[nodiscard]] HidingRule hidingRule(const HostContext& host, const PropertyList& record);

/// For the debug log: the rule with what the record asks for and what there is instead, in English.
[[nodiscard]] std::string hidingReason(HidingRule rule, const std::string& applicationName,
                                       const PropertyList& record);

} // namespace tavrel
