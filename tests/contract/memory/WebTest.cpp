#include "contract/WebContract.h"

#include "platform/memory/MemoryWeb.h"

namespace tavrel {
namespace {

class MemoryWebWorld {
public:
  Web& web() { return web_; }
  std::string publish(const PropertyList& list) {
    const std::string address = "http://x/" + std::to_string(web_.control.dictionaries.size());
    web_.control.dictionaries.insert_or_assign(address, list);
    return address;
  }

private:
  MemoryWeb web_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, WebContract, MemoryWebWorld);

} // namespace
} // namespace tavrel
