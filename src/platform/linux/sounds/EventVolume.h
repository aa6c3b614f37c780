#pragma once

#include <cstdint>
#include <memory>

namespace tavrel {

/// The volume that a PulseAudio server (or one that speaks its protocol) keeps for alert sounds.
/// No server is started, and nothing waits for one: the volume is known from the moment the server
/// has told it. After a use one
/// is looked for that was not there, or went. Silence leaves the volume kept there alone, so that
/// it cannot get lost.
class EventVolume {
public:
  EventVolume();
  ~EventVolume();
  EventVolume(const EventVolume&) = delete;
  EventVolume& operator=(const EventVolume&) = delete;

  /// 0 when it is silent or when no server has told it; 65536 is the full volume.
  [[nodiscard]] std::int32_t get() const;
  /// Forgotten without a server, and so is the next one then: silence and its end come in pairs,
  /// and a server that came in between is not to be left silent.
  void set(std::int32_t volume);
  /// Whether there is a volume, and it is silent.
  [[nodiscard]] bool isSilent() const;

private:
  struct Server;
  std::unique_ptr<Server> server_;
};

} // namespace tavrel
