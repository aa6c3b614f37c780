#include "script/values/Object.h"

namespace tavrel::script {

// Freeing an object may release others. Those wait in a list for the loop of the outermost call, so
// that the calls do not go deeper with each level.
void Object::dispose(Object* object) {
  thread_local Object* dead = nullptr;
  thread_local bool isBusy = false;
  object->nextDead_ = dead;
  dead = object;
  if (std::exchange(isBusy, true))
    return;
  while (dead) {
    Object* next = dead;
    dead = next->nextDead_;
    delete next;
  }
  isBusy = false;
}

} // namespace tavrel::script
