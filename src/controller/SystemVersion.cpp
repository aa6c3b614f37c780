#include "controller/SystemVersion.h"

namespace tavrel {

std::int32_t gOsVersion = 0;

} // namespace tavrel
