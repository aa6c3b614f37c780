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
constexpr std::size_t mostQuestions = 256;
constexpr qint64 period = 250; // milliseconds
constexpr qint64 longestWaitOfPeriod = 25;
constexpr std::chrono::seconds idlePatience{5};
constexpr std::chrono::milliseconds patienceAtEnd{200};
} // namespace

struct IconLookups::Shared {
  struct Question {
    std::string path;
    Folders folders;
    Answer answer;
    std::function<void()> dropped;
  };
  struct Found {
    Answer answer;
    FileIconFacts evidence;
  };

  Find find; ///< called by the threads
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Question> questions; ///< latest last
  std::vector<Found> found;
  std::size_t threads = 0;
  std::size_t idle = 0;          ///< of these
  std::function<void()> deliver; ///< in the main thread; empty when nobody is there any more
  bool deliveryComes = false;

  /// Threads without a question wait a while for one.
  std::optional<Question> next() {
    std::unique_lock lock(mutex);
    ++idle;
    changed.wait_for(lock, idlePatience, [this] { return !questions.empty() || !deliver; });
    --idle;
    if (questions.empty()) {
      --threads;
      changed.notify_all();
      return std::nullopt;
    }
    Question question = std::move(questions.back());
    questions.pop_back();
    return question;
  }

  static void work(const std::shared_ptr<Shared>& shared) {
    while (auto question = shared->next()) {
      FileIconFacts evidence = shared->find(question->path, *question->folders);
      const std::lock_guard lock(shared->mutex);
      shared->found.push_back({std::move(question->answer), std::move(evidence)});
      shared->changed.notify_all();
      if (shared->deliver && !std::exchange(shared->deliveryComes, true))
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

/// Threads that a dead file system holds are left behind.
IconLookups::~IconLookups() {
  std::unique_lock lock(shared_->mutex);
  shared_->deliver = nullptr;
  shared_->questions.clear();
  shared_->changed.notify_all();
  shared_->changed.wait_for(lock, patienceAtEnd, [this] { return shared_->threads == 0; });
}

void IconLookups::ask(const std::string& path, Folders folders, Answer answer,
                      std::function<void()> dropped) {
  std::function<void()> tell;
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->questions.push_back({path, std::move(folders), std::move(answer), std::move(dropped)});
    if (shared_->questions.size() > mostQuestions) {
      tell = std::move(shared_->questions.front().dropped);
      shared_->questions.pop_front();
    }
    if (shared_->threads < mostThreads && shared_->idle < shared_->questions.size()) {
      ++shared_->threads;
      std::thread([shared = shared_] { Shared::work(shared); }).detach();
    }
    shared_->changed.notify_all();
  }
  if (tell)
    tell();
}

void IconLookups::deliver() {
  std::vector<Shared::Found> found;
  {
    const std::lock_guard lock(shared_->mutex);
    found.swap(shared_->found);
    shared_->deliveryComes = false;
  }
  for (Shared::Found& each : found)
    each.answer(std::move(each.evidence));
}

void IconLookups::waitBriefly(const std::function<bool()>& done) {
  if (!period_.isValid() || period_.elapsed() > period) {
    period_.start();
    waited_ = 0;
  }
  QElapsedTimer waiting;
  waiting.start();
  while (!done() && waited_ + waiting.elapsed() < longestWaitOfPeriod) {
    {
      std::unique_lock lock(shared_->mutex);
      shared_->changed.wait_for(
          lock, std::chrono::milliseconds(longestWaitOfPeriod - waited_ - waiting.elapsed()),
          [this] { return !shared_->found.empty(); });
    }
    deliver();
  }
  waited_ += waiting.elapsed();
}

} // namespace tavrel
