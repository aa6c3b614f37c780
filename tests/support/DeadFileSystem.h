#pragma once

#include <fcntl.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

namespace tavrel {

/// A mounted file system that never answers, as a share whose server is gone. Whoever waits for it
/// is let go when it is destroyed. Mounting takes the rights of the administrator.
class DeadFileSystem {
public:
  explicit DeadFileSystem(std::string folder)
      : folder_(std::move(folder)), device_(::open("/dev/fuse", O_RDWR | O_CLOEXEC)) {
    const std::string options =
        "fd=" + std::to_string(device_) + ",rootmode=40000,user_id=0,group_id=0";
    mounted_ = device_ >= 0 &&
               ::mount("dead", folder_.c_str(), "fuse", MS_NOSUID | MS_NODEV, options.c_str()) == 0;
  }
  ~DeadFileSystem() {
    if (mounted_)
      ::umount2(folder_.c_str(), MNT_DETACH);
    if (device_ >= 0)
      ::close(device_);
  }
  DeadFileSystem(const DeadFileSystem&) = delete;
  DeadFileSystem& operator=(const DeadFileSystem&) = delete;

  [[nodiscard]] bool isMounted() const { return mounted_; }

private:
  std::string folder_;
  int device_ = -1;
  bool mounted_ = false;
};

} // namespace tavrel
