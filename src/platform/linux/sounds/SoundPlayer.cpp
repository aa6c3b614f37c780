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
constexpr std::chrono::seconds startTimeout{1};
constexpr std::chrono::seconds shutdownTimeout{1};
constexpr std::size_t queueLimit = 16;

// The library (ALSA 1.2) writes nine lines for each failed attempt; we log one line, once.
void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}

class Context {
public:
  Context() {
    snd_lib_error_set_handler(ignoreMessage);
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
      warnOnce(status);
    return status == CA_SUCCESS;
  }

private:
  void warnOnce(int status) {
    if (!hasWarned_)
      qCWarning(soundsLog, "no sounds can be played: %s", ca_strerror(status));
    hasWarned_ = true;
  }

  ca_context* context_ = nullptr;
  bool hasWarned_ = false;
};

} // namespace

struct SoundPlayer::Shared {
  struct Queued {
    SoundRequest request;
    SteadyClock::time_point since;
    [[nodiscard]] bool isFresh() const { return SteadyClock::now() - since < startTimeout; }
  };

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Queued> queue;
  bool closed = false;
  bool ended = false;

  // Waits for the next sound; nothing when the player has been destroyed.
  std::optional<Queued> next() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return closed || !queue.empty(); });
    if (closed)
      return std::nullopt;
    Queued first = std::move(queue.front());
    queue.pop_front();
    return first;
  }

  // Under the lock that the destructor takes, so that nothing is called after it.
  void reportUnheard(const Queued& queued) {
    const std::lock_guard lock(mutex);
    if (!closed && queued.isFresh() && queued.request.unheard)
      queued.request.unheard();
  }

  void run() {
    playAll();
    const std::lock_guard lock(mutex);
    ended = true;
    changed.notify_all();
  }

  void playAll() {
    Context context;
    while (const auto queued = next())
      if (queued->isFresh() && !context.play(queued->request))
        reportUnheard(*queued);
  }
};

SoundPlayer::SoundPlayer() : shared_(std::make_shared<Shared>()) {
  std::thread([shared = shared_] { shared->run(); }).detach();
}

// libcanberra 0.30 crashed now and then when the process ended while it was at work; but a call
// that hangs must not keep the process either.
SoundPlayer::~SoundPlayer() {
  std::unique_lock lock(shared_->mutex);
  shared_->closed = true;
  shared_->changed.notify_all();
  (void)shared_->changed.wait_for(lock, shutdownTimeout, [this] { return shared_->ended; });
}

void SoundPlayer::play(SoundRequest request) {
  const std::lock_guard lock(shared_->mutex);
  if (shared_->queue.size() == queueLimit)
    shared_->queue.pop_front();
  shared_->queue.push_back({std::move(request), SteadyClock::now()});
  shared_->changed.notify_all();
}

} // namespace tavrel
