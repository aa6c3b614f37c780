#pragma once

#include "platform/linux/x11/clipboard/ClipboardContents.h"
#include "platform/linux/x11/clipboard/NativeTarget.h"

#include <optional>

namespace tavrel {

/// What a program that asks for a target is given.
struct ServedTarget {
  std::string type;
  std::uint8_t format = 8;
  SharedBytes bytes;
};

/// The targets that other programs see, in order. With native names among the contents these and no
/// others, but for the unread ones; else what each of the platform's names is understood by:
///   string     UTF8_STRING, text/plain;charset=utf-8, text/plain, STRING, TEXT
///   rtf, html, pdf, tiff      text/rtf and application/rtf, text/html, application/pdf, image/...
///   url        text/uri-list
///   filenames  x-special/gnome-copied-files, text/uri-list
[[nodiscard]] std::vector<std::string> servedTargets(const ClipboardContents& contents);

/// Nothing for a target that is not offered or has no data.
[[nodiscard]] std::optional<ServedTarget> servedTarget(const ClipboardContents& contents,
                                                       const std::string& target);

/// Whether data that other programs may ask for is still to be set.
[[nodiscard]] bool awaitsData(const ClipboardContents& contents);

} // namespace tavrel
