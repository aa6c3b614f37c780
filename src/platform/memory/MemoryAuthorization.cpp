#include "platform/memory/MemoryAuthorization.h"

namespace tavrel {

namespace {

ToolOutput outputOf(const std::string& text) {
  return [rest = text](std::size_t size) mutable {
    std::string read = rest.substr(0, size);
    rest.erase(0, size);
    return read;
  };
}

class RightsSession final : public AuthorizationRef {
public:
  explicit RightsSession(MemoryAuthorization::Control& control) : control_(control) {
    ++control_.sessions;
  }

  bool copyRights(const std::string& right, std::uint32_t flags) override {
    control_.log.push_back("ask " + right + " " + std::to_string(flags));
    return control_.grants;
  }

  std::optional<ToolOutput>
  executeWithPrivileges(const std::string& tool,
                        const std::vector<std::string>& arguments) override {
    std::string line = "run " + tool;
    for (const std::string& argument : arguments)
      line.append(" ").append(argument);
    control_.log.push_back(line);
    return control_.starts ? std::optional(outputOf(control_.toolOutput)) : std::nullopt;
  }

  void free(std::uint32_t flags) override {
    --control_.sessions;
    control_.log.push_back("free " + std::to_string(flags));
  }

private:
  MemoryAuthorization::Control& control_;
};

} // namespace

std::unique_ptr<AuthorizationRef> MemoryAuthorization::create() {
  return control.creates ? std::make_unique<RightsSession>(control) : nullptr;
}

} // namespace tavrel
