#include "platform/linux/system/CompositorCheck.h"

#include "platform/linux/system/FileDescriptor.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace tavrel {

namespace {
std::string valueOf(const char* variable) {
  const char* value = std::getenv(variable);
  return value ? value : "";
}
} // namespace

bool compositorAnswers() {
  const std::string name = valueOf("WAYLAND_DISPLAY");
  if (name.empty())
    return false;
  const std::string path = name[0] == '/' ? name : valueOf("XDG_RUNTIME_DIR") + "/" + name;
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path)
    return false;
  std::ranges::copy(path, address.sun_path);
  const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

} // namespace tavrel
