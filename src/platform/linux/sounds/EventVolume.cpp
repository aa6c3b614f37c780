#include "platform/linux/sounds/EventVolume.h"

#include <pulse/ext-stream-restore.h>
#include <pulse/pulseaudio.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace tavrel {

namespace {
constexpr pa_usec_t beforeLooking = 300 * PA_USEC_PER_MSEC;
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

void forget(pa_operation* operation) {
  if (operation)
    pa_operation_unref(operation);
}
} // namespace

// All but the constructor and the destructor runs with the loop's lock held.
struct EventVolume::Server {
  /// What the server keeps of the role; the full volume before anybody has moved it.
  struct KeptVolume {
    KeptVolume() {
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
    lookForServer();
    (void)pa_threaded_mainloop_start(loop);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    if (loop)
      pa_threaded_mainloop_stop(loop);
    dropContext();
    if (look)
      api()->time_free(look);
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
    kept.reset();
    if (!context)
      return;
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(std::exchange(context, nullptr));
  }

  // A server may have come, or come back, since it was asked for last. Looking takes milliseconds,
  // which a menu that is about to show is not to wait for.
  void lookForServer() {
    if (look || (context && PA_CONTEXT_IS_GOOD(pa_context_get_state(context))))
      return;
    timeval later;
    pa_timeval_add(pa_gettimeofday(&later), beforeLooking);
    look = api()->time_new(
        api(), &later,
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
          static_cast<Server*>(self)->looks();
        },
        this);
  }

  void looks() {
    api()->time_free(std::exchange(look, nullptr));
    connect();
  }

  void stateChanged() {
    if (pa_context_get_state(context) != PA_CONTEXT_READY) {
      kept.reset();
      return;
    }
    pa_ext_stream_restore_set_subscribe_cb(
        context, [](pa_context*, void* self) { static_cast<Server*>(self)->ask(); }, this);
    forget(pa_ext_stream_restore_subscribe(context, 1, nullptr, nullptr));
    ask();
  }

  void ask() {
    answer = KeptVolume();
    forget(pa_ext_stream_restore_read(
        context,
        [](pa_context*, const pa_ext_stream_restore_info* info, int end, void* self) {
          static_cast<Server*>(self)->told(info, end);
        },
        this));
  }

  // A server that keeps no volumes answers with an error at once, below 0.
  void told(const pa_ext_stream_restore_info* info, int end) {
    if (info && std::string_view(info->name) == eventRole && info->volume.channels > 0)
      answer.take(*info);
    if (end > 0)
      kept = answer;
  }

  void write(const KeptVolume& wanted) {
    kept = wanted;
    pa_ext_stream_restore_info info{};
    info.name = eventRole;
    info.channel_map = wanted.channels;
    info.volume = wanted.volume;
    info.mute = wanted.isMuted ? 1 : 0;
    forget(pa_ext_stream_restore_write(context, PA_UPDATE_REPLACE, &info, 1, 1, nullptr, nullptr));
  }

  pa_threaded_mainloop* loop = pa_threaded_mainloop_new();
  pa_context* context = nullptr;
  pa_time_event* look = nullptr;  ///< for a server, soon
  KeptVolume answer;              ///< of the question that is under way
  std::optional<KeptVolume> kept; ///< nothing: no server
  bool isHalfDone = false; ///< silencing was forgotten: what is to end it does not count either
};

EventVolume::EventVolume() : server_(std::make_unique<Server>()) {}

EventVolume::~EventVolume() = default;

std::int32_t EventVolume::get() const {
  const MainloopLock lock(server_->loop);
  server_->lookForServer();
  if (!server_->kept || server_->kept->isMuted)
    return 0;
  return static_cast<std::int32_t>(
      std::min<pa_volume_t>(pa_cvolume_max(&server_->kept->volume), PA_VOLUME_UI_MAX));
}

void EventVolume::set(std::int32_t volume) {
  const MainloopLock lock(server_->loop);
  server_->lookForServer();
  if (!server_->kept || server_->isHalfDone) {
    server_->isHalfDone = !server_->isHalfDone;
    return;
  }
  auto wanted = *server_->kept;
  wanted.isMuted = volume <= 0;
  if (volume > 0)
    pa_cvolume_scale(&wanted.volume, static_cast<pa_volume_t>(volume));
  server_->write(wanted);
}

bool EventVolume::isSilent() const {
  const MainloopLock lock(server_->loop);
  server_->lookForServer();
  return server_->kept && (server_->kept->isMuted || pa_cvolume_max(&server_->kept->volume) == 0);
}

} // namespace tavrel
