#include "platform/macos/MacSystemEvents.h"

#include <ApplicationServices/ApplicationServices.h>

namespace tavrel {

namespace {

/// A descriptor that is disposed of, whether or not it was filled.
struct OwnedDescriptor {
  AEDesc value{typeNull, nullptr};
  OwnedDescriptor() = default;
  OwnedDescriptor(const OwnedDescriptor&) = delete;
  OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;
  ~OwnedDescriptor() { AEDisposeDesc(&value); }
};

OSStatus addressSystemProcess(OwnedDescriptor& address) {
  const ::ProcessSerialNumber systemProcess{0, kSystemProcess};
  return AECreateDesc(typeProcessSerialNumber, &systemProcess, sizeof systemProcess,
                      &address.value);
}

} // namespace

std::int32_t MacSystemEvents::send(const SystemEvent& event) {
  OwnedDescriptor address;
  if (const OSStatus status = addressSystemProcess(address); status != noErr)
    return status;
  OwnedDescriptor request;
  if (const OSStatus status =
          AECreateAppleEvent(event.eventClass, event.eventIdentifier, &address.value,
                             kAutoGenerateReturnID, kAnyTransactionID, &request.value);
      status != noErr)
    return status;
  OwnedDescriptor reply;
  return AESendMessage(&request.value, &reply.value, kAENoReply, kAEDefaultTimeout);
}

} // namespace tavrel
