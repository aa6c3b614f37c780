#include "contract/EventQueueContract.h"

#include "platform/memory/MemoryClock.h"
#include "platform/memory/MemoryEventQueue.h"

namespace tavrel {
namespace {

struct MemoryEventQueueWorld {
  MemoryClock time;
  MemoryEventQueue adapter{time};
  MemoryEventQueueWorld() { adapter.control.buttonState = 1; }
  EventQueue& queue() { return adapter; }
  Clock& clock() { return time; }
  void drag() { happens(EventType::leftMouseDragged); }
  void release() {
    adapter.control.buttonState = 0;
    happens(EventType::leftMouseUp);
  }

private:
  void happens(EventType type) {
    Event event;
    event.type = type;
    event.timestamp = time.now();
    adapter.control.waiting.push_back(event);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, EventQueueContract, MemoryEventQueueWorld);

} // namespace
} // namespace tavrel
