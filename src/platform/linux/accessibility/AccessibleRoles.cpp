#include "platform/linux/accessibility/AccessibleRoles.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

struct RoleName {
  std::uint32_t role;
  std::string_view name;
};

constexpr std::uint32_t menuRole = 33;
constexpr std::uint32_t menuBarRole = 34;
constexpr std::uint32_t menuItemRole = 35;
constexpr std::uint32_t textRole = 61;
constexpr std::uint32_t entryRole = 79;

constexpr std::array<RoleName, 67> roleNames{{
    // controls
    {7, "AXCheckBox"},
    {11, "AXPopUpButton"},
    {13, "AXImage"}, // an icon of the desktop
    {40, "AXTextField"},
    {42, "AXProgressIndicator"},
    {43, "AXButton"},
    {44, "AXRadioButton"},
    {15, "AXValueIndicator"}, // a dial
    {48, "AXValueIndicator"}, // a scroll bar
    {51, "AXValueIndicator"}, // a slider
    {52, "AXTextField"},      // a number with arrows beside it
    {62, "AXButton"},         // one that stays down
    {76, "AXTextField"},
    {77, "AXTextField"},
    {103, "AXLevelIndicator"},
    // menus and bars
    {8, "AXMenuItem"},
    {menuItemRole, "AXMenuItem"},
    {41, "AXMenu"},
    {45, "AXMenuItem"},
    {59, "AXMenuItem"},
    {menuBarRole, "AXMenuBar"},
    {37, "AXRadioButton"}, // the tab of a page
    {38, "AXTabGroup"},
    {63, "AXToolbar"},
    {54, "AXGroup"},
    // texts and pictures
    {29, "AXStaticText"},
    {73, "AXStaticText"},
    {81, "AXStaticText"},
    {83, "AXHeading"},
    {116, "AXStaticText"},
    {26, "AXImage"},
    {27, "AXImage"},
    {88, "AXLink"},
    {60, "AXTextArea"}, // a terminal
    {94, "AXTextArea"},
    {95, "AXWebArea"},
    {64, "AXHelpTag"},
    // lists and tables
    {31, "AXList"},
    {98, "AXList"},
    {32, "AXStaticText"},
    {55, "AXTable"},
    {56, "AXCell"},
    {10, "AXButton"}, // the head of a column sorts by it
    {57, "AXButton"},
    {47, "AXCell"},
    {58, "AXCell"},
    {65, "AXOutline"},
    {66, "AXOutline"},
    {90, "AXRow"},
    {91, "AXRow"},
    // what holds others
    {2, "AXWindow"},
    {16, "AXWindow"},
    {19, "AXWindow"},
    {23, "AXWindow"},
    {28, "AXWindow"},
    {69, "AXWindow"},
    {75, "AXApplication"},
    {20, "AXGroup"},
    {39, "AXGroup"},
    {46, "AXGroup"},
    {68, "AXGroup"},
    {85, "AXGroup"},
    {87, "AXGroup"},
    {99, "AXGroup"},
    {49, "AXScrollArea"},
    {50, "AXSplitter"},
    {53, "AXSplitGroup"},
}};

} // namespace

std::string_view axRole(const AccessibleFacts& facts) {
  if (facts.role == menuRole)
    return facts.parentRole == menuBarRole ? "AXMenuBarItem" : "AXMenuItem";
  if (facts.role == menuItemRole && facts.parentRole == menuBarRole)
    return "AXMenuBarItem";
  if (facts.role == textRole || facts.role == entryRole)
    return facts.hasManyLines ? "AXTextArea" : "AXTextField";
  const auto found = std::ranges::find(roleNames, facts.role, &RoleName::role);
  return found == roleNames.end() ? "AXUnknown" : found->name;
}

bool isControl(std::uint32_t role) {
  constexpr std::array controls{"AXCheckBox",  "AXPopUpButton",    "AXButton", "AXRadioButton",
                                "AXTextField", "AXValueIndicator", "AXLink",   "AXMenuItem"};
  const std::string_view name = axRole({role, 0, false});
  return role != menuRole && std::ranges::find(controls, name) != controls.end();
}

} // namespace tavrel
