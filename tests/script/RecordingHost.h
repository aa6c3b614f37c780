#pragma once

#include "script/Host.h"

#include <functional>
#include <map>

namespace tavrel::script {

/// A desktop for scripts that knows only what a test teaches it, and writes down what it is asked.
class RecordingHost final : public Host {
public:
  using Reply = std::function<HostAnswer(const HostEvent&)>;

  [[nodiscard]] HostAnswer perform(const HostEvent& event) override {
    asked.push_back(event);
    const auto reply = replies.find(event.command);
    if (reply == replies.end())
      return HostError{-1708, "“" + event.command + "” is not understood."};
    return reply->second(event);
  }
  [[nodiscard]] double now() override { return time; }
  [[nodiscard]] bool shouldStop() override { return stops; }

  std::map<std::string, Reply> replies;
  std::vector<HostEvent> asked;
  double time = 0;
  bool stops = false;
};

} // namespace tavrel::script
