#pragma once

#include "platform/linux/x11/clipboard/ClipboardContents.h"
#include "platform/linux/x11/clipboard/SelectionTarget.h"

#include <optional>

namespace tavrel {

/// The property value that a program gets for a target it requests.
struct ServedTarget {
  std::string type;
  std::uint8_t format = 8;
  SharedBytes bytes;
};

/// The targets that other programs are offered, in order. When there are X11 targets among the
/// contents, these only, without the unread ones; else those that each flavor is known by:
///   string     UTF8_STRING, text/plain;charset=utf-8, text/plain, STRING, TEXT
///   rtf, html, pdf, tiff      text/rtf and application/rtf, text/html, application/pdf, image/...
///   url        text/uri-list
///   filenames  x-special/gnome-copied-files, text/uri-list
[[nodiscard]] std::vector<std::string> servedTargets(const ClipboardContents& contents);

/// Nothing for a target that is not offered or has no data.
[[nodiscard]] std::optional<ServedTarget> servedTarget(const ClipboardContents& contents,
                                                       const std::string& target);

/// Whether data that other programs may request has not been set yet.
[[nodiscard]] bool awaitsData(const ClipboardContents& contents);

} // namespace tavrel
