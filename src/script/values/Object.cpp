#include "script/values/Object.h"

namespace tavrel::script {

// What an object holds is released only after the object is gone, from the loop of the first.
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
