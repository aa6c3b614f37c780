#include "platform/linux/x11/clipboard/LinuxPasteboards.h"

#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/x11/server/QtConnection.h"

namespace tavrel {

namespace {

Bytes asXml(const PropertyList& list) {
  return encodePropertyList(list, PropertyListForm::xml).value_or(Bytes());
}

std::optional<PropertyList> fromXml(const Bytes& bytes) {
  return decodePropertyList(bytes).value;
}

// The first of the toolkit's window numbers, by which its windows, our menus among them, are known.
xcb_window_t toolkitWindows() {
  xcb_connection_t* server = qtConnection();
  return server ? xcb_get_setup(server)->resource_id_base : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

LinuxPasteboards::LinuxPasteboards()
    : pasteboards_({asXml, fromXml}), thread_(ClipboardThread::create(toolkitWindows())) {
  if (thread_)
    general_.emplace(*thread_);
  else
    qCWarning(clipboardLog, "no X server that tells of the clipboard: none is shared with others");
}

Pasteboard& LinuxPasteboards::general() {
  return general_ ? static_cast<Pasteboard&>(*general_) : pasteboards_.general();
}

} // namespace tavrel
