#include "platform/macos/MacAuthorization.h"

#include <Security/Security.h>

#include <cstdio>
#include <memory>

// Deprecated, and nothing that needs no installed helper took its place.
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

namespace tavrel {

namespace {

static_assert(authorizationFlag::interactionAllowed == kAuthorizationFlagInteractionAllowed);
static_assert(authorizationFlag::extendRights == kAuthorizationFlagExtendRights);
static_assert(authorizationFlag::destroyRights == kAuthorizationFlagDestroyRights);
static_assert(authorizationFlag::preAuthorize == kAuthorizationFlagPreAuthorize);

std::vector<char*> argumentPointers(const std::vector<std::string>& arguments) {
  std::vector<char*> pointers;
  for (const std::string& each : arguments)
    pointers.push_back(const_cast<char*>(each.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

/// Closes the pipe once it is drained, or when the reader is destroyed.
ToolOutput outputOf(FILE* pipe) {
  return [open = std::shared_ptr<FILE>(pipe, std::fclose)](std::size_t size) mutable {
    std::string bytes(open ? size : 0, '\0');
    if (!bytes.empty())
      bytes.resize(std::fread(bytes.data(), 1, bytes.size(), open.get()));
    if (bytes.empty() && size > 0)
      open.reset();
    return bytes;
  };
}

class AuthorizationSession final : public AuthorizationRef {
public:
  explicit AuthorizationSession(::AuthorizationRef session) : session_(session) {}
  AuthorizationSession(const AuthorizationSession&) = delete;
  AuthorizationSession& operator=(const AuthorizationSession&) = delete;
  ~AuthorizationSession() override { free(kAuthorizationFlagDefaults); }

  bool copyRights(const std::string& right, std::uint32_t flags) override {
    AuthorizationItem item{right.c_str(), 0, nullptr, 0};
    const AuthorizationRights rights{1, &item};
    return session_ && AuthorizationCopyRights(session_, &rights, kAuthorizationEmptyEnvironment,
                                               flags, nullptr) == errAuthorizationSuccess;
  }

  std::optional<ToolOutput>
  executeWithPrivileges(const std::string& tool,
                        const std::vector<std::string>& arguments) override {
    const std::vector<char*> pointers = argumentPointers(arguments);
    FILE* pipe = nullptr;
    const bool started = session_ && AuthorizationExecuteWithPrivileges(
                                         session_, tool.c_str(), kAuthorizationFlagDefaults,
                                         pointers.data(), &pipe) == errAuthorizationSuccess;
    return started && pipe ? std::optional(outputOf(pipe)) : std::nullopt;
  }

  void free(std::uint32_t flags) override {
    if (session_)
      AuthorizationFree(session_, flags);
    session_ = nullptr;
  }

private:
  ::AuthorizationRef session_;
};

} // namespace

std::unique_ptr<AuthorizationRef> MacAuthorization::create() {
  ::AuthorizationRef session = nullptr;
  const OSStatus status = AuthorizationCreate(nullptr, kAuthorizationEmptyEnvironment,
                                              kAuthorizationFlagDefaults, &session);
  return status == errAuthorizationSuccess ? std::make_unique<AuthorizationSession>(session)
                                           : nullptr;
}

} // namespace tavrel
