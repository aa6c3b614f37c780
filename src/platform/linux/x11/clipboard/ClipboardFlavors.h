#pragma once

#include "platform/linux/x11/clipboard/ClipboardContents.h"

#include <optional>

namespace tavrel {

/// The platform's names for what native targets can give, in the order of `pasteboardType`, and
/// `concealed` when their owner asks that nobody keeps them. Only targets with data count.
[[nodiscard]] std::vector<std::string> flavorsOf(const ClipboardContents& natives);

/// The data of a platform's name out of native targets:
///   NSStringPboardType     UTF-8, whatever the target's encoding
///   NSHTMLPboardType       UTF-8
///   NSRTFPboardType, NSPDFPboardType, NSTIFFPboardType
///                          as they are; an image stays in the format it came in (TIFF if offered)
///   NSURLPboardType        the first URL
///   NSFilenamesPboardType  a property list in XML: the array of absolute paths
[[nodiscard]] std::optional<Bytes> flavorData(const ClipboardContents& natives,
                                              const std::string& name);

} // namespace tavrel
