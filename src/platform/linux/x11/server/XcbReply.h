#pragma once

#include <cstdlib>
#include <memory>

namespace tavrel {

/// Owns the memory that an xcb_..._reply function returned; null when the request failed.
template <typename Reply> auto xcbReply(Reply* reply) {
  return std::unique_ptr<Reply, decltype(&std::free)>(reply, &std::free);
}

} // namespace tavrel
