#include "platform/linux/ResourceFolder.h"

#include <cstdio>

int main() {
  std::puts(tavrel::resourceFolder().c_str());
}
