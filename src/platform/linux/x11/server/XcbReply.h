#pragma once

#include <cstdlib>
#include <memory>

namespace tavrel {

/// Owns what an xcb_..._reply function returned; null for an error.
template <typename Reply> auto xcbReply(Reply* reply) {
  return std::unique_ptr<Reply, decltype(&std::free)>(reply, &std::free);
}

} // namespace tavrel
