#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace tavrel {

/// An environment variable as a test needs it; it is put back at the end.
class EnvironmentVariable {
public:
  EnvironmentVariable(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name))
      old_ = old;
    ::setenv(name, value.c_str(), 1);
  }
  ~EnvironmentVariable() {
    if (old_)
      ::setenv(name_, old_->c_str(), 1);
    else
      ::unsetenv(name_);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
  const char* name_;
  std::optional<std::string> old_;
};

} // namespace tavrel
