#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// `do shell script`: runs the text with /bin/sh in the root folder and answers what it printed,
/// without the last line feed; line feeds become carriage returns unless they are not to be
/// altered. Another exit than 0 is an error of that number with what stood on standard error, of
/// which 1 MB is kept. Output that is no UTF-8 (-1700) or over 64 MB (-108) is an error, never
/// cut short. What the command leaves running is not waited for. Administrators are asked by
/// pkexec.
[[nodiscard]] script::HostAnswer runShellScript(const script::HostEvent& event,
                                                const std::function<bool()>& shouldStop);

} // namespace tavrel
