#include "platform/Platform.h"

#include <cstdlib>
#include <iostream>
#include <utility>

namespace tavrel {

namespace {
Platform* installed = nullptr;

[[noreturn]] void refuse(const char* why) {
  std::cerr << "tavrel: " << why << '\n';
  std::abort();
}
} // namespace

Platform& platform() {
  if (!installed)
    refuse("no platform is installed");
  return *installed;
}

void installPlatform(Platform& ports) {
  if (installed)
    refuse("a platform is installed already");
  installed = &ports;
}

ScopedPlatform::ScopedPlatform(Platform& ports) : previous_(std::exchange(installed, &ports)) {}

ScopedPlatform::~ScopedPlatform() {
  installed = previous_;
}

} // namespace tavrel
