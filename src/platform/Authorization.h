#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Bits of a request for rights.
namespace authorizationFlag {
inline constexpr std::uint32_t interactionAllowed = 1;
inline constexpr std::uint32_t extendRights = 2;
inline constexpr std::uint32_t destroyRights = 8;
inline constexpr std::uint32_t preAuthorize = 16;
} // namespace authorizationFlag

/// What a privileged tool prints: up to `size` bytes of it; empty at its end or on an error.
using ToolOutput = std::function<std::string(std::size_t size)>;

/// A session of rights, and what may be done with them.
class AuthorizationRef {
public:
  virtual ~AuthorizationRef() = default;

  /// Asks the user, once, for an administrator's word; false when it is not given.
  [[nodiscard]] virtual bool copyRights(const std::string& right, std::uint32_t flags) = 0;

  /// Starts a tool as the administrator, its output held for the caller; nothing when it was not
  /// started. Its end is not waited for. Only the right named above is at its disposal.
  [[nodiscard]] virtual std::optional<ToolOutput>
  executeWithPrivileges(const std::string& tool, const std::vector<std::string>& arguments) = 0;

  /// Gives the session back; with `destroyRights` what the user granted goes, too.
  virtual void free(std::uint32_t flags) = 0;
};

/// Sessions of rights.
class Authorization {
public:
  virtual ~Authorization() = default;

  /// A session without rights; null when the desktop has none to give.
  [[nodiscard]] virtual std::unique_ptr<AuthorizationRef> create() = 0;
};

} // namespace tavrel
