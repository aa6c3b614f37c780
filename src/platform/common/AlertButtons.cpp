#include "platform/common/AlertButtons.h"

namespace tavrel {

std::vector<AlertButton> alertButtons(const AlertPanel& panel) {
  std::vector<AlertButton> buttons{{panel.defaultButton, AlertAnswer::standard},
                                   {panel.alternateButton, AlertAnswer::alternate},
                                   {panel.otherButton, AlertAnswer::other}};
  std::erase_if(buttons, [](const AlertButton& each) { return each.title.empty(); });
  return buttons;
}

AlertAnswer answerWithoutButton(const AlertPanel& panel) {
  return panel.alternateButton.empty() ? AlertAnswer::standard : AlertAnswer::alternate;
}

} // namespace tavrel
