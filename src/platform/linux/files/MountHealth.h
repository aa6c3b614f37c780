#pragma once

#include "platform/linux/files/DistantMounts.h"

#include <functional>
#include <memory>

namespace tavrel {

/// Whether the file system that a path leads to answers: false for a share whose server is gone, so
/// that nobody goes on to wait for it for ever. Only distant file systems are asked, each at most
/// once in a few seconds, and waited for a second; one that does not answer is a line on standard
/// error, and is not waited for again until it does. Any thread.
[[nodiscard]] bool fileSystemAnswers(const std::string& path);

/// Runs a question about a path on a distant file system in a thread of its own, and tells whether
/// it came to an end within a second; at once that it did not while an earlier one is still stuck.
/// The question must hold all that it uses, for it may outlive everybody. One asked by another
/// question is run as it is.
[[nodiscard]] bool isAnsweredInTime(const std::string& mountPoint, std::function<void()> question);

/// Whether the calling thread may wait as long as it takes.
[[nodiscard]] bool mayWaitForEver();

/// Where a path leads to that the calling thread must not wait for.
[[nodiscard]] std::optional<std::string> doubtfulMountOf(const std::string& path, FinalLink link);

/// The answer to a question about a path that leads to the mount point; `otherwise` when it does
/// not come in time. The question holds all that it uses: it is run in another thread.
template <class Answer, class Question>
[[nodiscard]] Answer askAt(const std::string& mountPoint, Answer otherwise, Question question) {
  auto answer = std::make_shared<std::optional<Answer>>();
  const bool answered = isAnsweredInTime(
      mountPoint, [answer, question = std::move(question)] { answer->emplace(question()); });
  return answered ? *std::move(*answer) : std::move(otherwise);
}

/// The answer to a question about a path; `otherwise` when its file system does not give it in
/// time. The question holds all that it uses: it is run in another thread for a distant path.
template <class Answer, class Question>
[[nodiscard]] Answer askWithTimeout(const std::string& path, FinalLink link, Answer otherwise,
                                    Question question) {
  const auto point = doubtfulMountOf(path, link);
  return point ? askAt(*point, std::move(otherwise), std::move(question)) : question();
}

} // namespace tavrel
