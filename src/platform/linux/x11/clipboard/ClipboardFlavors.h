#pragma once

#include "platform/linux/x11/clipboard/ClipboardContents.h"

#include <optional>

namespace tavrel {

/// The flavors (`pasteboardType`) that X11 targets can be converted to, in that order, and
/// `concealed` when their owner asks clipboard managers not to keep them. Only targets with data
/// count.
[[nodiscard]] std::vector<std::string> flavorsOf(const ClipboardContents& targets);

/// The data of a flavor, converted from X11 targets:
///   NSStringPboardType     UTF-8, whatever the target's encoding
///   NSHTMLPboardType       UTF-8
///   NSRTFPboardType, NSPDFPboardType, NSTIFFPboardType
///                          as they are; an image stays in the format it came in (TIFF if offered)
///   NSURLPboardType        the first URL
///   NSFilenamesPboardType  a property list in XML: the array of absolute paths
[[nodiscard]] std::optional<Bytes> flavorData(const ClipboardContents& targets,
                                              const std::string& name);

} // namespace tavrel
