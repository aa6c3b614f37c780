#include "platform/linux/sounds/SoundPlayer.h"

#include <QLoggingCategory>
#include <alsa/asoundlib.h>
#include <canberra.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(soundsLog, "tavrel.sounds")

using SteadyClock = std::chrono::steady_clock;
constexpr std::chrono::seconds freshness{1};
constexpr std::chrono::seconds longestGoodbye{1};
constexpr std::size_t mostWaiting = 16;

// The library tells each failed attempt in nine lines; ours says it in one, once.
void sayNothing(const char*, int, const char*, int, const char*, ...) {}

class Context {
public:
  Context() {
    snd_lib_error_set_handler(sayNothing);
    if (ca_context_create(&context_) != CA_SUCCESS)
      context_ = nullptr;
    else
      ca_context_change_props(context_, CA_PROP_APPLICATION_NAME, "Tavrel", CA_PROP_APPLICATION_ID,
                              "qorvane.tavrel.Tavrel", nullptr);
  }
  ~Context() {
    if (context_)
      ca_context_destroy(context_);
  }
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  [[nodiscard]] bool play(const SoundRequest& request) {
    const char* property =
        request.kind == SoundRequest::Kind::file ? CA_PROP_MEDIA_FILENAME : CA_PROP_EVENT_ID;
    const int status = context_
                           ? ca_context_play(context_, 0, property, request.what.c_str(), nullptr)
                           : CA_ERROR_NOTAVAILABLE;
    if (status != CA_SUCCESS)
      sayOnce(status);
    return status == CA_SUCCESS;
  }

private:
  void sayOnce(int status) {
    if (!said_)
      qCWarning(soundsLog, "no sounds can be played: %s", ca_strerror(status));
    said_ = true;
  }

  ca_context* context_ = nullptr;
  bool said_ = false;
};

} // namespace

struct SoundPlayer::Shared {
  struct Waiting {
    SoundRequest request;
    SteadyClock::time_point since;
    [[nodiscard]] bool isFresh() const { return SteadyClock::now() - since < freshness; }
  };

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Waiting> waiting;
  bool closed = false;
  bool ended = false;

  // Nothing when the player is gone.
  std::optional<Waiting> next() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return closed || !waiting.empty(); });
    if (closed)
      return std::nullopt;
    Waiting first = std::move(waiting.front());
    waiting.pop_front();
    return first;
  }

  // Closing waits for what is told here, so that nobody is told after it.
  void tell(const Waiting& waiter) {
    const std::lock_guard lock(mutex);
    if (!closed && waiter.isFresh() && waiter.request.unheard)
      waiter.request.unheard();
  }

  void run() {
    playAll();
    const std::lock_guard lock(mutex);
    ended = true;
    changed.notify_all();
  }

  void playAll() {
    Context context;
    while (const auto waiter = next())
      if (waiter->isFresh() && !context.play(waiter->request))
        tell(*waiter);
  }
};

SoundPlayer::SoundPlayer() : shared_(std::make_shared<Shared>()) {
  std::thread([shared = shared_] { shared->run(); }).detach();
}

// The library must not be at work while the process takes itself down, but for a call that hangs.
SoundPlayer::~SoundPlayer() {
  std::unique_lock lock(shared_->mutex);
  shared_->closed = true;
  shared_->changed.notify_all();
  (void)shared_->changed.wait_for(lock, longestGoodbye, [this] { return shared_->ended; });
}

void SoundPlayer::play(SoundRequest request) {
  const std::lock_guard lock(shared_->mutex);
  if (shared_->waiting.size() == mostWaiting)
    shared_->waiting.pop_front();
  shared_->waiting.push_back({std::move(request), SteadyClock::now()});
  shared_->changed.notify_all();
}

} // namespace tavrel
