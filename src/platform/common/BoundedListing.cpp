#include "platform/common/BoundedListing.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace tavrel {

namespace {

struct Reading {
  std::mutex mutex;
  std::condition_variable ended;
  std::vector<ListedFile> files;
  std::size_t answers = 0;
  bool done = false;
};

std::vector<ListedFile> unknownFiles(const std::vector<std::string>& names) {
  std::vector<ListedFile> files;
  for (const std::string& name : names)
    files.push_back({name, name, false, FileKind::none});
  return files;
}

void readAll(const FolderQuestions& ask, Reading& reading) {
  const std::vector<std::string> names = ask.names();
  const auto answer = [&reading](auto&& store) {
    const std::lock_guard lock(reading.mutex);
    store();
    ++reading.answers;
  };
  answer([&] { reading.files = unknownFiles(names); });
  for (std::size_t at = 0; at < names.size(); ++at) {
    ListedFile told = ask.describe(names[at]);
    answer([&] { reading.files[at] = std::move(told); });
  }
  answer([&] { reading.done = true; });
  reading.ended.notify_all();
}

/// Nothing that the thread holds belongs to anybody else.
std::shared_ptr<Reading> startedReading(const FolderQuestions& ask) {
  auto reading = std::make_shared<Reading>();
  try {
    std::thread([ask, reading] { readAll(ask, *reading); }).detach();
  } catch (const std::system_error&) { // no thread to be had
    readAll(ask, *reading);
  }
  return reading;
}

} // namespace

std::vector<ListedFile> listWithin(const FolderQuestions& ask, std::chrono::milliseconds timeout) {
  const auto reading = startedReading(ask);
  std::unique_lock lock(reading->mutex);
  std::size_t answers = 0;
  while (!reading->ended.wait_for(lock, timeout, [&] { return reading->done; })) {
    if (answers == reading->answers)
      break;
    answers = reading->answers;
  }
  return reading->files;
}

} // namespace tavrel
