#include "script/binding/Predefined.h"

#include "script/values/Dates.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace tavrel::script {
namespace {

using Named = std::pair<std::string_view, std::string_view>;

constexpr auto texts = std::to_array<Named>(
    {{"space", " "}, {"tab", "\t"}, {"linefeed", "\n"}, {"quote", "\""}, {"return", "\r"}});

constexpr auto durations = std::to_array<std::pair<std::string_view, std::int64_t>>(
    {{"minutes", 60}, {"hours", 3600}, {"days", 86400}, {"weeks", 604800}});

constexpr auto constantNames = std::to_array<std::string_view>(
    {"yes", "no", "ask", "stop", "note", "caution", "critical", "warning", "informational", "up",
     "down", "eof", "desktop", "trash", "applescript", "anything"});

constexpr auto weekdays = std::to_array<std::string_view>(
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});

bool isLowered(std::string_view name, std::string_view lowered) {
  return std::equal(name.begin(), name.end(), lowered.begin(), lowered.end(),
                    [](char a, char b) { return (a | 0x20) == b; });
}

Value calendarName(const std::string& name) {
  for (int month = 1; month <= 12; ++month)
    if (isLowered(monthName(month), name))
      return Value::constant(monthName(month));
  for (std::string_view each : weekdays)
    if (isLowered(each, name))
      return Value::constant(each);
  return {};
}

} // namespace

Value predefinedValue(Heap& heap, const std::string& name) {
  for (const auto& [each, text] : texts)
    if (name == each)
      return Value(Ref(new Text(heap, std::string(text))));
  for (const auto& [each, seconds] : durations)
    if (name == each)
      return Value::integer(seconds);
  if (std::find(constantNames.begin(), constantNames.end(), name) != constantNames.end())
    return Value::constant(name);
  return name == "pi" ? Value::real(std::numbers::pi) : calendarName(name);
}

} // namespace tavrel::script
