#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace tavrel {

/// Calls `visit` with the name, without folders, of each file that a process has mapped: its
/// program, its libraries, also those that it loaded late, and data files (/proc/PID/maps,
/// proc(5)). Names may come several times. Never called for a process of another user.
void forEachMappedFile(std::int32_t pid, const std::function<void(std::string_view)>& visit);

} // namespace tavrel
