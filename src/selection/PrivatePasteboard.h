#pragma once

#include "base/PropertyList.h"
#include "platform/Pasteboards.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The name of the pasteboard that holds the captured selection.
inline constexpr const char* TVRMenuPboardType = "TVRMenuPboardType";

[[nodiscard]] Pasteboard& privatePasteboard();

/// The first of these types that a pasteboard offers; nothing when it offers none.
[[nodiscard]] std::optional<std::string>
firstAvailableType(Pasteboard& pasteboard, const std::vector<std::string>& candidates);

/// Whether what it holds is to be neither logged nor kept longer than needed.
[[nodiscard]] bool isConcealed(Pasteboard& pasteboard);

/// Empties the captured selection when it is concealed: to be called once nobody needs it.
void forgetConcealedSelection();

/// Whether the captured selection holds files.
[[nodiscard]] bool isSelectionFiles();

/// The file list as captured, by whichever of the two types has one; nothing without one.
[[nodiscard]] std::optional<PropertyList> capturedFileList();

/// The paths of the captured files; nothing when no list was captured. Values in the list that
/// are no strings are left out.
[[nodiscard]] std::optional<std::vector<std::string>> capturedFiles();

} // namespace tavrel
