#pragma once

#include "platform/Alerts.h"

#include <deque>
#include <functional>
#include <vector>

namespace tavrel {

/// Panels that a test answers.
class MemoryAlerts final : public Alerts {
public:
  struct Control {
    std::vector<AlertPanel> shown;
    std::deque<AlertAnswer> answers; ///< to the next panels; those after are closed
    std::function<void()> onShow;    ///< what happens while a panel stands
  };
  Control control;

  AlertAnswer run(const AlertPanel& panel) override {
    control.shown.push_back(panel);
    if (control.onShow)
      control.onShow();
    if (control.answers.empty())
      return panel.alternateButton.empty() ? AlertAnswer::standard : AlertAnswer::alternate;
    const AlertAnswer answer = control.answers.front();
    control.answers.pop_front();
    return answer;
  }
};

} // namespace tavrel
