#include "platform/linux/accessibility/AccessibleRoles.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace tavrel {
namespace {

/// The roles of AT-SPI 2 in the order in which its protocol numbers them, from 0; later versions
/// have more.
// clang-format off
namespace role {
enum AtspiRole : std::uint32_t {
  invalid, acceleratorLabel, alert, animation, arrow, calendar, canvas, checkBox, checkMenuItem,
  colorChooser, columnHeader, comboBox, dateEditor, desktopIcon, desktopFrame, dial, dialog,
  directoryPane, drawingArea, fileChooser, filler, focusTraversable, fontChooser, frame,
  glassPane, htmlContainer, icon, image, internalFrame, label, layeredPane, list, listItem,
  menu, menuBar, menuItem, optionPane, pageTab, pageTabList, panel, passwordText, popupMenu,
  progressBar, pushButton, radioButton, radioMenuItem, rootPane, rowHeader, scrollBar,
  scrollPane, separator, slider, spinButton, splitPane, statusBar, table, tableCell,
  tableColumnHeader, tableRowHeader, tearoffMenuItem, terminal, text, toggleButton, toolBar,
  toolTip, tree, treeTable, unknown, viewport, window, extended, header, footer, paragraph,
  ruler, application, autocomplete, editbar, embedded, entry, chart, caption, documentFrame,
  heading, page, section, redundantObject, form, link, inputMethodWindow, tableRow, treeItem,
  documentSpreadsheet, documentPresentation, documentText, documentWeb, documentEmail, comment,
  listBox, grouping, imageMap, notification, infoBar, levelBar, titleBar, blockQuote, audio,
  video, definition, article, landmark, log, marquee, math, rating, timer, staticText,
  end
};
} // namespace role
// clang-format on
using namespace role;

/// The elements that have a counterpart among the AX roles, by its name.
const std::map<std::string, std::vector<AtspiRole>> counterparts{
    {"AXWindow", {alert, dialog, fileChooser, frame, internalFrame, window}},
    {"AXApplication", {application}},
    {"AXGroup", {filler, panel, rootPane, statusBar, viewport, section, form, grouping}},
    {"AXScrollArea", {scrollPane}},
    {"AXSplitter", {separator}},
    {"AXSplitGroup", {splitPane}},
    {"AXCheckBox", {checkBox}},
    {"AXPopUpButton", {comboBox}},
    {"AXRadioButton", {radioButton, pageTab}},
    {"AXButton", {pushButton, toggleButton, columnHeader, tableColumnHeader}},
    {"AXValueIndicator", {dial, scrollBar, slider}},
    {"AXProgressIndicator", {progressBar}},
    {"AXLevelIndicator", {levelBar}},
    {"AXTextField", {passwordText, spinButton, autocomplete, editbar, text, entry}},
    {"AXTextArea", {terminal, documentText}},
    {"AXWebArea", {documentWeb}},
    {"AXStaticText", {label, paragraph, caption, staticText, listItem}},
    {"AXHeading", {heading}},
    {"AXImage", {desktopIcon, icon, image}},
    {"AXLink", {link}},
    {"AXHelpTag", {toolTip}},
    {"AXMenu", {popupMenu}},
    {"AXMenuBar", {menuBar}},
    {"AXMenuItem", {checkMenuItem, menu, menuItem, radioMenuItem, tearoffMenuItem}},
    {"AXTabGroup", {pageTabList}},
    {"AXToolbar", {toolBar}},
    {"AXList", {list, listBox}},
    {"AXTable", {table}},
    {"AXCell", {tableCell, rowHeader, tableRowHeader}},
    {"AXOutline", {tree, treeTable}},
    {"AXRow", {tableRow, treeItem}}};

TEST(AccessibleRoles, EveryRoleHasTheNameOfItsCounterpartOrIsUnknown) {
  std::map<std::uint32_t, std::string> expected;
  for (const auto& [name, roles] : counterparts)
    for (const AtspiRole each : roles)
      EXPECT_TRUE(expected.emplace(each, name).second) << each << " is listed twice here";
  for (std::uint32_t each = 0; each < 2U * end; ++each)
    EXPECT_EQ(axRole({each}), expected.contains(each) ? expected[each] : "AXUnknown") << each;
}

TEST(AccessibleRoles, AMenuIsAnItemOfTheBarOrMenuThatItLiesIn) {
  EXPECT_EQ(axRole({menuItem, menu}), "AXMenuItem");
  EXPECT_EQ(axRole({menu, menu}), "AXMenuItem");
  EXPECT_EQ(axRole({menu, menuBar}), "AXMenuBarItem");
  EXPECT_EQ(axRole({menuItem, menuBar}), "AXMenuBarItem");
}

TEST(AccessibleRoles, ATextWithManyLinesIsAnArea) {
  for (const AtspiRole each : {text, entry}) {
    EXPECT_EQ(axRole({each}), "AXTextField");
    EXPECT_EQ(axRole({each, 0, true}), "AXTextArea");
  }
}

TEST(AccessibleRoles, WhatAUserPressesOrFillsInIsAControl) {
  for (const AtspiRole each :
       {pushButton, toggleButton, checkBox, radioButton, slider, menuItem, entry, link, comboBox})
    EXPECT_TRUE(isControl(each)) << each;
  for (const AtspiRole each : {menu, menuBar, frame, panel, toolBar, label, image, invalid})
    EXPECT_FALSE(isControl(each)) << each;
}

} // namespace
} // namespace tavrel
