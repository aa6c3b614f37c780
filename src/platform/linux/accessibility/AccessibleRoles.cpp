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

// Beside each number stands the name that AT-SPI 2 has for it.
constexpr std::array<RoleName, 67> roleNames{{
    // controls
    {7, "AXCheckBox"},           // check box
    {11, "AXPopUpButton"},       // combo box
    {13, "AXImage"},             // desktop icon
    {40, "AXTextField"},         // password text
    {42, "AXProgressIndicator"}, // progress bar
    {43, "AXButton"},            // push button
    {44, "AXRadioButton"},       // radio button
    {15, "AXValueIndicator"},    // dial
    {48, "AXValueIndicator"},    // scroll bar: AT-SPI has no element for its thumb
    {51, "AXValueIndicator"},    // slider
    {52, "AXTextField"},         // spin button: a number with arrows beside it
    {62, "AXButton"},            // toggle button: stays down when pressed
    {76, "AXTextField"},         // autocomplete
    {77, "AXTextField"},         // editbar
    {103, "AXLevelIndicator"},   // level bar
    // menus and bars
    {8, "AXMenuItem"},            // check menu item
    {menuItemRole, "AXMenuItem"}, // menu item
    {41, "AXMenu"},               // popup menu
    {45, "AXMenuItem"},           // radio menu item
    {59, "AXMenuItem"},           // tearoff menu item
    {menuBarRole, "AXMenuBar"},   // menu bar
    {37, "AXRadioButton"},        // page tab
    {38, "AXTabGroup"},           // page tab list
    {63, "AXToolbar"},            // tool bar
    {54, "AXGroup"},              // status bar
    // texts and pictures
    {29, "AXStaticText"},  // label
    {73, "AXStaticText"},  // paragraph
    {81, "AXStaticText"},  // caption
    {83, "AXHeading"},     // heading
    {116, "AXStaticText"}, // static
    {26, "AXImage"},       // icon
    {27, "AXImage"},       // image
    {88, "AXLink"},        // link
    {60, "AXTextArea"},    // terminal
    {94, "AXTextArea"},    // document text
    {95, "AXWebArea"},     // document web
    {64, "AXHelpTag"},     // tool tip
    // lists and tables
    {31, "AXList"},       // list
    {98, "AXList"},       // list box
    {32, "AXStaticText"}, // list item
    {55, "AXTable"},      // table
    {56, "AXCell"},       // table cell
    {10, "AXButton"},     // column header: a click sorts by the column
    {57, "AXButton"},     // table column header
    {47, "AXCell"},       // row header
    {58, "AXCell"},       // table row header
    {65, "AXOutline"},    // tree
    {66, "AXOutline"},    // tree table
    {90, "AXRow"},        // table row
    {91, "AXRow"},        // tree item
    // what holds others
    {2, "AXWindow"},       // alert
    {16, "AXWindow"},      // dialog
    {19, "AXWindow"},      // file chooser
    {23, "AXWindow"},      // frame
    {28, "AXWindow"},      // internal frame
    {69, "AXWindow"},      // window
    {75, "AXApplication"}, // application
    {20, "AXGroup"},       // filler
    {39, "AXGroup"},       // panel
    {46, "AXGroup"},       // root pane
    {68, "AXGroup"},       // viewport
    {85, "AXGroup"},       // section
    {87, "AXGroup"},       // form
    {99, "AXGroup"},       // grouping
    {49, "AXScrollArea"},  // scroll pane
    {50, "AXSplitter"},    // separator
    {53, "AXSplitGroup"},  // split pane
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
