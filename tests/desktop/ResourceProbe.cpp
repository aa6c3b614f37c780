#include "platform/linux/installation/ResourceFolder.h"

#include <cstdio>

int main() {
  std::puts(tavrel::resourceFolder().c_str());
}
