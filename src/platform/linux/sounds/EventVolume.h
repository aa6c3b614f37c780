#pragma once

#include <cstdint>
#include <memory>

namespace tavrel {

/// The volume of alert sounds, which a PulseAudio server (or PipeWire, by the same protocol) stores
/// for the media role "event". Speaks with the server on the library's own thread. Never starts a
/// server and never waits for one: the volume is known once the server has sent it. Each use
/// connects again, a moment later, when there is no connection. Silencing sets the role's mute flag
/// and leaves the stored volume alone, so that it survives a crash.
class EventVolume {
public:
  EventVolume();
  ~EventVolume();
  EventVolume(const EventVolume&) = delete;
  EventVolume& operator=(const EventVolume&) = delete;

  /// 65536 is the full volume; 0 when it is muted or when no server has sent it.
  [[nodiscard]] std::int32_t get() const;
  /// Ignored without a server, and so is the next call then: the core silences and restores in
  /// pairs, and a server that appears between the two must not be left muted.
  void set(std::int32_t volume);
  /// Whether a server is there and alerts are muted or at volume 0.
  [[nodiscard]] bool isSilent() const;

private:
  struct Server;
  std::unique_ptr<Server> server_;
};

} // namespace tavrel
