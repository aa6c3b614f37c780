#include "controller/TVApplication.h"

#include "platform/Bundle.h"
#include "platform/Platform.h"

#include <utility>

namespace tavrel {

TVApplication::TVApplication(EventTarget& base) : base_(base) {}

void TVApplication::sendEvent(const Event& event) {
  const bool released =
      event.type == EventType::systemDefined && event.subtype == hotKeyReleasedSubtype;
  if (released && performHotkey_)
    performHotkey_(event.data1);
  base_.sendEvent(event);
}

void TVApplication::setHotKeyHandler(HotKeyHandler handler) {
  performHotkey_ = std::move(handler);
}

std::optional<std::string> TVApplication::hostAppName() const {
  return hostAppName_;
}

void TVApplication::setHostName(std::optional<std::string> name) {
  hostAppName_ = std::move(name);
}

std::string TVApplication::currentLocalization() const {
  const auto localizations = platform().bundle.preferredLocalizations();
  return localizations.empty() ? "English" : localizations.front();
}

std::optional<std::string> TVApplication::longVersion() {
  longVersion_ = platform().bundle.informationValue("CFBundleGetInfoString");
  return longVersion_;
}

void TVApplication::setContextObject(std::optional<PropertyList> object) {
  contextObject_ = std::move(object);
}

} // namespace tavrel
