#pragma once

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/fuse.h>
#include <poll.h>
#include <string>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tavrel {

/// A mounted file system that holds a folder "inside" and answers until it dies, as a share whose
/// server goes down. Nothing is kept by the kernel: each question comes here. Whoever waits for it
/// is let go when it is destroyed. Mounting takes the rights of the administrator.
class DyingFileSystem {
public:
  explicit DyingFileSystem(std::string folder)
      : folder_(std::move(folder)), device_(::open("/dev/fuse", O_RDWR | O_CLOEXEC)) {
    const std::string options =
        "fd=" + std::to_string(device_) + ",rootmode=40000,user_id=0,group_id=0";
    mounted_ = device_ >= 0 && ::mount("dying", folder_.c_str(), "fuse", MS_NOSUID | MS_NODEV,
                                       options.c_str()) == 0;
    if (mounted_)
      server_ = std::thread([this] { serve(); });
  }
  ~DyingFileSystem() {
    die();
    if (mounted_)
      ::umount2(folder_.c_str(), MNT_DETACH);
    if (device_ >= 0)
      ::close(device_);
  }
  DyingFileSystem(const DyingFileSystem&) = delete;
  DyingFileSystem& operator=(const DyingFileSystem&) = delete;

  [[nodiscard]] bool isMounted() const { return mounted_; }

  /// From now on nobody gets an answer.
  void die() {
    alive_ = false;
    if (server_.joinable())
      server_.join();
  }

private:
  static constexpr std::uint64_t insideNode = 2;

  void serve() {
    std::vector<char> request(1 << 17);
    while (alive_) {
      pollfd asked{device_, POLLIN, 0};
      if (::poll(&asked, 1, 10) > 0 && ::read(device_, request.data(), request.size()) > 0)
        answer(*reinterpret_cast<const fuse_in_header*>(request.data()));
    }
  }

  void answer(const fuse_in_header& asked) {
    const char* name = reinterpret_cast<const char*>(&asked + 1);
    if (asked.opcode == FUSE_INIT)
      reply(asked, initial());
    else if (asked.opcode == FUSE_GETATTR)
      reply(asked, fuse_attr_out{0, 0, 0, folderOf(asked.nodeid)});
    else if (asked.opcode == FUSE_LOOKUP && std::strcmp(name, "inside") == 0)
      reply(asked, fuse_entry_out{insideNode, 1, 0, 0, 0, 0, folderOf(insideNode)});
    else if (asked.opcode == FUSE_STATFS)
      reply(asked, fuse_statfs_out{});
    else if (asked.opcode == FUSE_OPENDIR)
      reply(asked, fuse_open_out{});
    else
      send({sizeof(fuse_out_header), asked.opcode == FUSE_LOOKUP ? -ENOENT : -ENOSYS, asked.unique},
           nullptr, 0);
  }

  static fuse_init_out initial() {
    fuse_init_out out{};
    out.major = FUSE_KERNEL_VERSION;
    out.minor = FUSE_KERNEL_MINOR_VERSION;
    out.max_write = 4096;
    return out;
  }

  static fuse_attr folderOf(std::uint64_t node) {
    fuse_attr folder{};
    folder.ino = node;
    folder.mode = S_IFDIR | 0755;
    folder.nlink = 2;
    return folder;
  }

  template <class Body> void reply(const fuse_in_header& asked, const Body& body) {
    send({sizeof(fuse_out_header) + sizeof body, 0, asked.unique}, &body, sizeof body);
  }

  void send(fuse_out_header head, const void* body, std::size_t size) {
    const iovec parts[]{{&head, sizeof head}, {const_cast<void*>(body), size}};
    (void)!::writev(device_, parts, size == 0 ? 1 : 2);
  }

  std::string folder_;
  int device_ = -1;
  bool mounted_ = false;
  std::atomic<bool> alive_{true};
  std::thread server_;
};

} // namespace tavrel
