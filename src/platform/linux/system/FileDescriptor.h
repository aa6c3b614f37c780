#pragma once

#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tavrel {

/// An open file descriptor, closed at the end of its life; -1 when there is none.
class FileDescriptor {
public:
  explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() { close(); }

  [[nodiscard]] int get() const { return descriptor_; }
  [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }

  /// As close(2): -1 for an error, which network file systems report only here for what was
  /// written.
  int close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 ? 0 : ::close(descriptor);
  }

private:
  int descriptor_;
};

/// errno of the last failed system call.
[[nodiscard]] inline std::error_code lastError() {
  return {errno, std::generic_category()};
}

/// No error when a system call returned 0 or more.
[[nodiscard]] inline std::error_code outcome(long result) {
  return result < 0 ? lastError() : std::error_code();
}

} // namespace tavrel
