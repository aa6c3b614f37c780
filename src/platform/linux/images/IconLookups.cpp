#include "platform/linux/images/IconLookups.h"

#include <QCoreApplication>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tavrel {

namespace {
constexpr std::size_t mostThreads = 4;
constexpr std::size_t mostRequests = 256;
constexpr qint64 waitPeriodMsecs = 250;
constexpr qint64 mostWaitInPeriodMsecs = 25;
constexpr std::chrono::seconds idleTimeout{5};
constexpr std::chrono::milliseconds shutdownTimeout{200};
} // namespace

struct IconLookups::Shared {
  struct Request {
    std::string path;
    Folders folders;
    Callback callback;
    std::function<void()> dropped;
  };
  struct Found {
    Callback callback;
    FileIconFacts facts;
  };

  Find find; ///< called by the threads
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Request> requests; ///< latest last
  std::vector<Found> found;
  std::size_t threads = 0;
  std::size_t idleThreads = 0;   ///< of these
  std::function<void()> deliver; ///< in the main thread; empty once the owner is destroyed
  bool isDeliveryQueued = false;

  /// The request to serve next; nothing when none came within the idle timeout.
  std::optional<Request> waitForRequest() {
    std::unique_lock lock(mutex);
    ++idleThreads;
    changed.wait_for(lock, idleTimeout, [this] { return !requests.empty() || !deliver; });
    --idleThreads;
    if (requests.empty()) {
      --threads;
      changed.notify_all();
      return std::nullopt;
    }
    Request request = std::move(requests.back());
    requests.pop_back();
    return request;
  }

  static void serveRequests(const std::shared_ptr<Shared>& shared) {
    while (auto request = shared->waitForRequest()) {
      FileIconFacts facts = shared->find(request->path, *request->folders);
      const std::lock_guard lock(shared->mutex);
      shared->found.push_back({std::move(request->callback), std::move(facts)});
      shared->changed.notify_all();
      if (shared->deliver && !std::exchange(shared->isDeliveryQueued, true))
        QMetaObject::invokeMethod(qApp, shared->deliver, Qt::QueuedConnection);
    }
  }
};

IconLookups::IconLookups(Find find) : shared_(std::make_shared<Shared>()) {
  shared_->find = std::move(find);
  shared_->deliver = [this, alive = std::weak_ptr(shared_)] {
    if (const auto shared = alive.lock(); shared && shared->deliver)
      deliver();
  };
}

/// Threads that a dead file system blocks go on by themselves, without an owner.
IconLookups::~IconLookups() {
  std::unique_lock lock(shared_->mutex);
  shared_->deliver = nullptr;
  shared_->requests.clear();
  shared_->changed.notify_all();
  shared_->changed.wait_for(lock, shutdownTimeout, [this] { return shared_->threads == 0; });
}

void IconLookups::request(const std::string& path, Folders folders, Callback callback,
                          std::function<void()> dropped) {
  std::function<void()> droppedCallback;
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->requests.push_back(
        {path, std::move(folders), std::move(callback), std::move(dropped)});
    if (shared_->requests.size() > mostRequests) {
      droppedCallback = std::move(shared_->requests.front().dropped);
      shared_->requests.pop_front();
    }
    if (shared_->threads < mostThreads && shared_->idleThreads < shared_->requests.size()) {
      ++shared_->threads;
      std::thread([shared = shared_] { Shared::serveRequests(shared); }).detach();
    }
    shared_->changed.notify_all();
  }
  if (droppedCallback)
    droppedCallback();
}

void IconLookups::deliver() {
  std::vector<Shared::Found> found;
  {
    const std::lock_guard lock(shared_->mutex);
    found.swap(shared_->found);
    shared_->isDeliveryQueued = false;
  }
  for (Shared::Found& each : found)
    each.callback(std::move(each.facts));
}

void IconLookups::waitBriefly(const std::function<bool()>& done) {
  if (!period_.isValid() || period_.elapsed() > waitPeriodMsecs) {
    period_.start();
    waited_ = 0;
  }
  QElapsedTimer waiting;
  waiting.start();
  while (!done() && waited_ + waiting.elapsed() < mostWaitInPeriodMsecs) {
    {
      std::unique_lock lock(shared_->mutex);
      shared_->changed.wait_for(
          lock, std::chrono::milliseconds(mostWaitInPeriodMsecs - waited_ - waiting.elapsed()),
          [this] { return !shared_->found.empty(); });
    }
    deliver();
  }
  waited_ += waiting.elapsed();
}

} // namespace tavrel
