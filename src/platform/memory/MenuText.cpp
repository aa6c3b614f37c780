#include "platform/memory/MenuText.h"

#include "base/Modifiers.h"
#include "platform/common/MenuRows.h"
#include "platform/memory/NamedImageContent.h"

#include <cmath>

namespace tavrel {

namespace {
const char* actionName(MenuAction action) {
  switch (action) {
  case MenuAction::none:
    return "";
  case MenuAction::statusMenuDidSelected:
    return "statusMenuDidSelected";
  case MenuAction::openTavrelPref:
    return "openTavrelPref";
  case MenuAction::fileItemDidSelected:
    return "fileItemDidSelected";
  case MenuAction::recentItemSelected:
    return "recentItemSelected";
  case MenuAction::processItemSelected:
    return "processItemSelected";
  }
  return "?";
}

std::string modifierMarks(std::uint32_t mask) {
  std::string marks;
  for (const auto& [bit, mark] : {std::pair{modifier::control, "⌃"},
                                  {modifier::option, "⌥"},
                                  {modifier::shift, "⇧"},
                                  {modifier::command, "⌘"}})
    if ((mask & bit) != 0)
      marks += mark;
  return marks;
}

std::string number(double value) {
  return std::to_string(std::lround(value));
}

std::string layerName(const ImageLayer& layer) {
  const auto* named = dynamic_cast<const NamedImageContent*>(layer.content.get());
  return named ? named->name() : "image";
}

std::string imageText(const Image& image) {
  std::string text = " {";
  for (const ImageLayer& layer : image.layers)
    text += layerName(layer) + "+";
  if (!image.layers.empty())
    text.back() = ' ';
  return text + number(image.size.width) + "x" + number(image.size.height) + "}";
}

std::string hiddenParts(const MenuItem& item) {
  std::string text;
  if (item.hidden)
    text += " [hidden]";
  if (item.isAlternate)
    text += " [alternate]";
  if (item.action != MenuAction::none)
    text += std::string(" <") + actionName(item.action) + ">";
  if (item.image)
    text += imageText(*item.image);
  return text;
}

std::string entryText(const MenuItem& item) {
  std::string text(item.indentation > 0 ? 2 * static_cast<std::size_t>(item.indentation) : 0, ' ');
  text += (item.state == MenuItemState::on ? "✓ " : "") + item.title;
  const std::string shortcut = modifierMarks(item.keyEquivalentModifierMask) + item.keyEquivalent;
  if (!shortcut.empty())
    text += " " + shortcut;
  return text + (item.enabled ? "" : " [disabled]");
}

std::vector<const MenuItem*> rowsOf(const Menu& menu, MenuTextDetail detail) {
  if (detail == MenuTextDetail::visibleRows)
    return visibleRows(menu, OptionKey::up);
  std::vector<const MenuItem*> rows;
  for (const auto& item : menu.items)
    rows.push_back(item.get());
  return rows;
}

struct Level {
  std::vector<const MenuItem*> rows;
  std::size_t next = 0;
};
} // namespace

std::string menuItemText(const MenuItem& item, MenuTextDetail detail) {
  std::string text = item.isSeparator ? "----" : entryText(item);
  if (detail == MenuTextDetail::everything)
    text += hiddenParts(item);
  return item.submenu ? text + " (" + item.submenu->title + ")" : text;
}

std::string menuText(const Menu& menu, MenuTextDetail detail) {
  std::string text;
  std::vector<Level> levels{{rowsOf(menu, detail)}};
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.next == level.rows.size()) {
      levels.pop_back();
      continue;
    }
    const MenuItem& item = *level.rows[level.next++];
    text += std::string(2 * (levels.size() - 1), ' ') + menuItemText(item, detail) + "\n";
    if (item.submenu)
      levels.push_back({rowsOf(*item.submenu, detail)});
  }
  return text;
}

} // namespace tavrel
