#include "platform/linux/dbus/BusProbe.h"

#include "platform/linux/system/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tavrel {

namespace {
struct SocketName {
  sockaddr_un name{};
  socklen_t length = 0;
};

std::string valueIn(const std::string& address, std::string_view key) {
  const std::size_t at = address.find(key);
  if (at == std::string::npos)
    return {};
  const std::size_t begin = at + key.size();
  return address.substr(begin, address.find_first_of(",;", begin) - begin);
}

// "unix:path=/run/...,guid=..." or "unix:abstract=/tmp/...,guid=...". Another transport, as tcp, is
// not probed and counts as silent.
std::optional<SocketName> socketIn(const std::string& address) {
  std::string name = valueIn(address, "unix:path=");
  if (const std::string abstractName = valueIn(address, "unix:abstract="); !abstractName.empty())
    name = std::string(1, '\0').append(abstractName);
  SocketName found;
  if (name.empty() || name.size() >= sizeof found.name.sun_path)
    return std::nullopt;
  found.name.sun_family = AF_UNIX;
  std::memcpy(found.name.sun_path, name.data(), name.size());
  found.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
  return found;
}

// The start of the D-Bus handshake: a NUL, then who we are, as hexadecimal digits of the user id.
std::string authenticationRequest() {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string message(1, '\0');
  message += "AUTH EXTERNAL ";
  for (const char digit : std::to_string(::getuid())) {
    message += digits[static_cast<unsigned char>(digit) >> 4];
    message += digits[static_cast<unsigned char>(digit) & 15];
  }
  return message.append("\r\n");
}
} // namespace

bool busAnswers(const QString& address, const QDeadlineTimer& deadline) {
  const auto name = socketIn(address.toStdString());
  const FileDescriptor bus(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!name ||
      ::connect(bus.get(), reinterpret_cast<const sockaddr*>(&name->name), name->length) != 0)
    return false;
  const std::string message = authenticationRequest();
  if (::send(bus.get(), message.data(), message.size(), MSG_NOSIGNAL) < 0)
    return false;
  pollfd answer{bus.get(), POLLIN, 0};
  const auto left = static_cast<int>(std::max<qint64>(0, deadline.remainingTime()));
  std::array<char, 2> ok{};
  return ::poll(&answer, 1, left) == 1 && ::read(bus.get(), ok.data(), ok.size()) == 2 &&
         std::string_view(ok.data(), ok.size()) == "OK";
}

} // namespace tavrel
