#pragma once

#include "script/Host.h"

#include <string_view>

namespace tavrel {

/// The value as text: texts, files by their paths, numbers. Nothing for others.
[[nodiscard]] std::optional<std::string> scriptText(const script::HostValue& value);
/// A number or a text that holds one.
[[nodiscard]] std::optional<double> scriptNumber(const script::HostValue& value);
/// The path of a file, or a text that is an absolute path; of a list the paths of its elements. A
/// path with a null character is left out, for the system would cut it short.
[[nodiscard]] std::vector<std::string> scriptPaths(const script::HostValue& value);
/// The texts of a list, or of a single value.
[[nodiscard]] std::vector<std::string> scriptTexts(const script::HostValue& value);

/// The element that a step leads to: one item by its index, or all of them. Nothing for others.
[[nodiscard]] std::optional<script::HostValue> listElement(const script::HostList& list,
                                                           const script::ObjectStep& step);

/// The object that the event is about, when its first step is that property; else null.
[[nodiscard]] const script::ObjectPath* objectIn(const script::HostEvent& event,
                                                 std::string_view property);

[[nodiscard]] std::string directText(const script::HostEvent& event);
/// Null without a parameter of that label.
[[nodiscard]] const script::HostValue* parameterOf(const script::HostEvent& event,
                                                   std::string_view label);
/// Empty without such a parameter.
[[nodiscard]] std::string textParameter(const script::HostEvent& event, std::string_view label);
[[nodiscard]] bool flagParameter(const script::HostEvent& event, std::string_view label,
                                 bool otherwise);

} // namespace tavrel
