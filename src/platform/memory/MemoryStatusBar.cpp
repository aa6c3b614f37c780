#include "platform/memory/MemoryStatusBar.h"

namespace tavrel {

namespace {
class MemoryStatusItem final : public StatusItem {
public:
  MemoryStatusItem(MemoryStatusBar::Control& area, double length) : area_(area) {
    state_->length = length;
    area_.items.push_back(state_);
  }
  ~MemoryStatusItem() override { std::erase(area_.items, state_); }

  void setImage(const Image& image) override { state_->images.push_back(image); }
  void setHighlightMode(bool highlight) override { state_->highlight = highlight; }
  void setMenu(Menu* menu) override { state_->menu = menu; }

private:
  MemoryStatusBar::Control& area_;
  std::shared_ptr<MemoryStatusBar::Item> state_ = std::make_shared<MemoryStatusBar::Item>();
};
} // namespace

std::unique_ptr<StatusItem> MemoryStatusBar::addItem(double length) {
  return std::make_unique<MemoryStatusItem>(control, length);
}

void MemoryStatusBar::click(std::size_t index) {
  if (index >= control.items.size())
    return;
  if (Menu* menu = control.items[index]->menu)
    presenter_.popUp(*menu, control.corner, MenuFont::standard);
}

} // namespace tavrel
