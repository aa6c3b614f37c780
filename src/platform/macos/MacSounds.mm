#import "platform/macos/MacSounds.h"

#include "base/PathString.h"
#include "platform/common/AlertLoudness.h"
#import "platform/macos/Conversions.h"

#import <AppKit/AppKit.h>
#import <AudioToolbox/AudioToolbox.h>

namespace tavrel {

namespace {
constexpr AudioServicesPropertyID alertLoudness = 0x7373766C; // 'ssvl', in no header
}

// A sound that is playing is restarted: the system does not play one twice at the same time.
bool MacSounds::play(const std::string& name) {
  const std::string plain = deletingPathExtension(name);
  if (plain.empty() || plain.find('/') != std::string::npos)
    return false;
  NSSound* const sound = [NSSound soundNamed:nsString(plain)];
  [sound stop];
  [sound play];
  return sound != nil;
}

void MacSounds::beep() {
  NSBeep();
}

std::int32_t MacSounds::alertVolume() {
  Float32 loudness = 0;
  UInt32 size = sizeof loudness;
  const OSStatus status = AudioServicesGetProperty(alertLoudness, 0, nullptr, &size, &loudness);
  return status == noErr && size == sizeof loudness ? volumeOfLoudness(loudness) : 0;
}

void MacSounds::setAlertVolume(std::int32_t volume) {
  const Float32 loudness = loudnessOfVolume(volume);
  (void)AudioServicesSetProperty(alertLoudness, 0, nullptr, sizeof loudness, &loudness);
}

} // namespace tavrel
