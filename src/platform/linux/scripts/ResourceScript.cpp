#include "platform/linux/scripts/ResourceScript.h"

#include "base/Utf8.h"
#include "platform/linux/scripts/ScriptArguments.h"

namespace tavrel {

namespace {

constexpr std::uint32_t typeNull = 0x6E756C6C;
constexpr std::uint32_t typeUnicodeText = 0x75747874;

Bytes unitsOf(const std::string& text) {
  const std::u16string units = utf16FromUtf8(text);
  const auto* raw = reinterpret_cast<const std::uint8_t*>(units.data());
  return {raw, raw + units.size() * sizeof(char16_t)};
}

} // namespace

AppleEventDescriptor descriptorOf(const script::HostValue& value) {
  const auto* list = std::get_if<script::HostList>(&value.value);
  if (!list)
    return {std::holds_alternative<std::string>(value.value) ? typeUnicodeText : typeNull, {}};
  AppleEventDescriptor descriptor{typeAEList, {}};
  for (const script::HostValue& item : *list)
    descriptor.items.push_back(unitsOf(scriptText(item).value_or("")));
  return descriptor;
}

std::optional<AppleEventDescriptor> ResourceScript::execute() {
  const LongRunningScripts::RunningScript running(longRunningScripts_, "Tavrel");
  const script::RunResult run = engine_.run(id_);
  if (run.error)
    return std::nullopt;
  return descriptorOf(run.value);
}

} // namespace tavrel
