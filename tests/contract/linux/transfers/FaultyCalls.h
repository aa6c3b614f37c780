#pragma once

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace tavrel {

/// What becomes of one system call.
enum class Fault {
  none,
  failed, ///< EIO, and nothing done
  lost,   ///< done, but EIO answered, as by a share that reconnects
  full,   ///< ENOSPC
  killed, ///< the process ends before it
  cutOff, ///< the process ends after it
};

/// The system calls of this program that change or read files, counted; one of them goes wrong.
/// Include it in one source of a program: it defines the calls in the C library's place.
struct FaultyCalls {
  Fault fault = Fault::none;
  int at = 0;           ///< which call, from 1
  int count = 0;        ///< calls so far
  bool hasLinks = true; ///< hard links, and renames that replace nothing
  bool isActive = false;
  std::string name{}; ///< of the call that went wrong
  /// Not empty: decides for each call what becomes of it, instead of `at`.
  std::function<Fault()> decide{};

  [[nodiscard]] Fault next() {
    ++count;
    return decide ? decide() : count == at ? fault : Fault::none;
  }
};
inline FaultyCalls faultyCalls;

constexpr int killedStatus = 99;

template <class Call> long faulty(const char* name, const Call& call) {
  const Fault fault = faultyCalls.isActive ? faultyCalls.next() : Fault::none;
  if (fault == Fault::none)
    return call();
  faultyCalls.name = name;
  if (fault == Fault::killed)
    ::_exit(killedStatus);
  if (fault == Fault::lost || fault == Fault::cutOff)
    (void)call();
  if (fault == Fault::cutOff)
    ::_exit(killedStatus);
  errno = fault == Fault::full ? ENOSPC : EIO;
  return -1;
}

template <class Function> Function* next(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

inline bool lacksLinks() {
  return faultyCalls.isActive && !faultyCalls.hasLinks;
}

inline int refuse(int error) {
  errno = error;
  return -1;
}

} // namespace tavrel

// NOLINTBEGIN: they are those of the C library.
#define TAVREL_FAULTY(result, name, parameters, arguments)                                         \
  extern "C" result name parameters {                                                              \
    static auto* const real = tavrel::next<result parameters>(#name);                              \
    return static_cast<result>(tavrel::faulty(#name, [&] { return long{real arguments}; }));       \
  }

extern "C" int openat(int folder, const char* name, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(more, unsigned) : 0;
  va_end(more);
  static auto* const real = tavrel::next<int(int, const char*, int, ...)>("openat");
  return static_cast<int>(
      tavrel::faulty("openat", [&] { return long{real(folder, name, flags, mode)}; }));
}
extern "C" int linkat(int from, const char* name, int to, const char* other, int flags) noexcept {
  static auto* const real = tavrel::next<int(int, const char*, int, const char*, int)>("linkat");
  if (tavrel::lacksLinks())
    return tavrel::refuse(EPERM);
  return static_cast<int>(
      tavrel::faulty("linkat", [&] { return long{real(from, name, to, other, flags)}; }));
}
extern "C" int renameat2(int from, const char* name, int to, const char* other,
                         unsigned flags) noexcept {
  static auto* const real =
      tavrel::next<int(int, const char*, int, const char*, unsigned)>("renameat2");
  if (tavrel::lacksLinks())
    return tavrel::refuse(EINVAL);
  return static_cast<int>(
      tavrel::faulty("renameat2", [&] { return long{real(from, name, to, other, flags)}; }));
}
TAVREL_FAULTY(int, renameat, (int from, const char* name, int to, const char* other) noexcept,
              (from, name, to, other))
TAVREL_FAULTY(int, unlinkat, (int folder, const char* name, int flags) noexcept,
              (folder, name, flags))
TAVREL_FAULTY(int, mkdirat, (int folder, const char* name, mode_t mode) noexcept,
              (folder, name, mode))
TAVREL_FAULTY(int, symlinkat, (const char* target, int folder, const char* name) noexcept,
              (target, folder, name))
TAVREL_FAULTY(int, mknodat, (int folder, const char* name, mode_t mode, dev_t device) noexcept,
              (folder, name, mode, device))
TAVREL_FAULTY(int, fstatat, (int folder, const char* name, struct stat* status, int flags) noexcept,
              (folder, name, status, flags))
TAVREL_FAULTY(int, fstat, (int file, struct stat* status) noexcept, (file, status))
TAVREL_FAULTY(int, fchmod, (int file, mode_t mode) noexcept, (file, mode))
TAVREL_FAULTY(int, ftruncate, (int file, off_t size) noexcept, (file, size))
TAVREL_FAULTY(int, fsync, (int file), (file))
TAVREL_FAULTY(int, syncfs, (int file) noexcept, (file))
TAVREL_FAULTY(int, close, (int file), (file))
TAVREL_FAULTY(ssize_t, pread, (int file, void* data, size_t size, off_t at), (file, data, size, at))
TAVREL_FAULTY(ssize_t, pwrite, (int file, const void* data, size_t size, off_t at),
              (file, data, size, at))
TAVREL_FAULTY(ssize_t, readlinkat,
              (int folder, const char* name, char* target, size_t size) noexcept,
              (folder, name, target, size))
#undef TAVREL_FAULTY
// NOLINTEND
