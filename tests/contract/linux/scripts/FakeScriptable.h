#pragma once

#include "platform/ScriptableApplication.h"

#include <functional>
#include <vector>

namespace tavrel {

/// An application that notes what it is asked.
struct FakeScriptable final : ScriptableApplication {
  std::optional<std::string> host = "Editor";
  std::optional<std::string> version = "Tavrel 1.2";
  std::optional<PropertyList> context;
  PropertyList converted{"a%20b"};
  std::vector<ScriptArguments> conversions;
  int copies = 0;
  int removals = 0;
  std::function<void()> duringRemoval = [] {};

  std::optional<std::string> hostAppName() const override { return host; }
  std::string currentLocalization() const override { return "English"; }
  std::optional<std::string> longVersion() override { return version; }
  std::optional<PropertyList> contextObject() const override { return context; }
  void handleCopyToClipboardScriptCommand() override { ++copies; }
  PropertyList handleConvertScriptCommand(const ScriptArguments& arguments) override {
    conversions.push_back(arguments);
    return converted;
  }
  void handleUninstallScriptCommand() override {
    ++removals;
    duringRemoval();
  }
};

} // namespace tavrel
