#include "platform/linux/sounds/EventVolume.h"

#include <pulse/ext-stream-restore.h>
#include <pulse/pulseaudio.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace tavrel {

namespace {
constexpr pa_usec_t connectDelay = 300 * PA_USEC_PER_MSEC;
constexpr const char* eventRole = "sink-input-by-media-role:event";

class MainloopLock {
public:
  explicit MainloopLock(pa_threaded_mainloop* loop) : loop_(loop) {
    pa_threaded_mainloop_lock(loop_);
  }
  MainloopLock(const MainloopLock&) = delete;
  MainloopLock& operator=(const MainloopLock&) = delete;
  ~MainloopLock() { pa_threaded_mainloop_unlock(loop_); }

private:
  pa_threaded_mainloop* loop_;
};

void release(pa_operation* operation) {
  if (operation)
    pa_operation_unref(operation);
}
} // namespace

// Everything but constructor and destructor runs with the lock of the library's main loop held.
struct EventVolume::Server {
  /// The volume that the server stores for the role; full until someone has changed it.
  struct StoredVolume {
    StoredVolume() {
      pa_channel_map_init_mono(&channels);
      pa_cvolume_set(&volume, 1, PA_VOLUME_NORM);
    }
    void take(const pa_ext_stream_restore_info& info) {
      channels = info.channel_map;
      volume = info.volume;
      isMuted = info.mute != 0;
    }

    pa_channel_map channels{};
    pa_cvolume volume{};
    bool isMuted = false;
  };

  Server() {
    if (!loop)
      return;
    connectLater();
    (void)pa_threaded_mainloop_start(loop);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    if (loop)
      pa_threaded_mainloop_stop(loop);
    dropContext();
    if (connectTimer)
      api()->time_free(connectTimer);
    if (loop)
      pa_threaded_mainloop_free(loop);
  }
  [[nodiscard]] pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(loop); }

  void connect() {
    dropContext();
    context = pa_context_new(api(), "Tavrel");
    if (!context)
      return;
    pa_context_set_state_callback(
        context, [](pa_context*, void* self) { static_cast<Server*>(self)->stateChanged(); }, this);
    (void)pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
  }

  void dropContext() {
    known.reset();
    if (!context)
      return;
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(std::exchange(context, nullptr));
  }

  // A server may have started, or restarted, since the last attempt. Connecting takes milliseconds,
  // which must not delay a menu that is about to show.
  void connectLater() {
    if (connectTimer || (context && PA_CONTEXT_IS_GOOD(pa_context_get_state(context))))
      return;
    timeval later;
    pa_timeval_add(pa_gettimeofday(&later), connectDelay);
    connectTimer = api()->time_new(
        api(), &later,
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
          static_cast<Server*>(self)->connectTimerFired();
        },
        this);
  }

  void connectTimerFired() {
    api()->time_free(std::exchange(connectTimer, nullptr));
    connect();
  }

  void stateChanged() {
    if (pa_context_get_state(context) != PA_CONTEXT_READY) {
      known.reset();
      return;
    }
    pa_ext_stream_restore_set_subscribe_cb(
        context, [](pa_context*, void* self) { static_cast<Server*>(self)->requestVolume(); },
        this);
    release(pa_ext_stream_restore_subscribe(context, 1, nullptr, nullptr));
    requestVolume();
  }

  void requestVolume() {
    incoming = StoredVolume();
    release(pa_ext_stream_restore_read(
        context,
        [](pa_context*, const pa_ext_stream_restore_info* info, int end, void* self) {
          static_cast<Server*>(self)->receive(info, end);
        },
        this));
  }

  // A server that stores no volumes answers with an error at once: `end` is below 0.
  void receive(const pa_ext_stream_restore_info* info, int end) {
    if (info && std::string_view(info->name) == eventRole && info->volume.channels > 0)
      incoming.take(*info);
    if (end > 0)
      known = incoming;
  }

  void write(const StoredVolume& wanted) {
    known = wanted;
    pa_ext_stream_restore_info info{};
    info.name = eventRole;
    info.channel_map = wanted.channels;
    info.volume = wanted.volume;
    info.mute = wanted.isMuted ? 1 : 0;
    release(pa_ext_stream_restore_write(context, PA_UPDATE_REPLACE, &info, 1, 1, nullptr, nullptr));
  }

  pa_threaded_mainloop* loop = pa_threaded_mainloop_new();
  pa_context* context = nullptr;
  pa_time_event* connectTimer = nullptr; ///< null while none runs
  StoredVolume incoming;                 ///< of the request that is under way
  std::optional<StoredVolume> known;     ///< nothing without a server
  bool ignoresNextSet = false;           ///< the other half of a pair was ignored
};

EventVolume::EventVolume() : server_(std::make_unique<Server>()) {}

EventVolume::~EventVolume() = default;

std::int32_t EventVolume::get() const {
  const MainloopLock lock(server_->loop);
  server_->connectLater();
  if (!server_->known || server_->known->isMuted)
    return 0;
  return static_cast<std::int32_t>(
      std::min<pa_volume_t>(pa_cvolume_max(&server_->known->volume), PA_VOLUME_UI_MAX));
}

void EventVolume::set(std::int32_t volume) {
  const MainloopLock lock(server_->loop);
  server_->connectLater();
  if (!server_->known || server_->ignoresNextSet) {
    server_->ignoresNextSet = !server_->ignoresNextSet;
    return;
  }
  auto wanted = *server_->known;
  wanted.isMuted = volume <= 0;
  if (volume > 0)
    pa_cvolume_scale(&wanted.volume, static_cast<pa_volume_t>(volume));
  server_->write(wanted);
}

bool EventVolume::isSilent() const {
  const MainloopLock lock(server_->loop);
  server_->connectLater();
  return server_->known &&
         (server_->known->isMuted || pa_cvolume_max(&server_->known->volume) == 0);
}

} // namespace tavrel
