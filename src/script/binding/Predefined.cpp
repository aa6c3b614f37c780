#include "script/binding/Binder.h"

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

Value meaning(Heap& heap, const std::string& name) {
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

void addTarget(const Node& target, Names& names) {
  if (target.kind == NodeKind::variable)
    names.insert(symbol(target.text));
  if (target.kind == NodeKind::list)
    for (const Node& each : target.children)
      addTarget(each, names);
}

void collect(const Node& node, Names& names) {
  switch (node.kind) {
  case NodeKind::handler:
    return;
  case NodeKind::script:
    names.insert(symbol(node.text));
    return;
  case NodeKind::set:
  case NodeKind::copy:
    if (!node.children.empty())
      addTarget(node.children[0], names);
    break;
  case NodeKind::repeatWith:
  case NodeKind::repeatIn:
    names.insert(symbol(node.text));
    break;
  case NodeKind::attempt:
    for (std::size_t i = 2; i < node.children.size(); ++i)
      addTarget(node.children[i], names);
    break;
  default:
    break;
  }
  if (node.kind >= NodeKind::block)
    for (const Node& each : node.children)
      collect(each, names);
}

} // namespace

Names assignedNames(const Node& block) {
  Names names;
  for (const Node& each : block.children)
    collect(each, names);
  return names;
}

CodePtr predefined(Heap& heap, const std::string& name) {
  Value value = meaning(heap, name);
  return value.is(ValueKind::undefined) ? nullptr : constantCode(std::move(value));
}

} // namespace tavrel::script
