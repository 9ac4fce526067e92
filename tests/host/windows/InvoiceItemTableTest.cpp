// The item table without a display: its selection, its keys and the entries of modules.
#include <fxkeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "plugin/contract/Forms.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Tarnwell.h"
#include "tests/host/windows/TestMenuPlugin.h"
#include "tests/support/RecordingTarget.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::pressKey;

namespace Quillane {
namespace {

using Plugin::InvoiceItemMenuPlugin;

// The first and last selected row.
using Rows = std::pair<FXint, FXint>;
const Rows kNoRows{-1, -1};

class InvoiceItemTableTest : public testing::Test {
 protected:
  InvoiceItemTableTest() {
    testAccount();
    for (const char* name : {"Szék", "Asztal", "Lámpa", "Polc"}) form.addItem(name);
  }

  Rows selectedRows() const { return {table.getSelStartRow(), table.getSelEndRow()}; }

  bool areColumnsWhole() const {
    return table.getSelStartColumn() == 0 && table.getSelEndColumn() == table.getNumColumns() - 1;
  }

  /// The texts of the menu's commands from top to bottom, separators as "-".
  std::vector<std::string> menuTexts() const {
    std::vector<std::string> texts;
    for (FXWindow* child = table.getMenu()->getFirst(); child; child = child->getNext()) {
      auto* command = dynamic_cast<FXMenuCommand*>(child);
      texts.emplace_back(command ? command->getText().text() : "-");
    }
    return texts;
  }

  TestSupport::TestForm form;
  InvoiceItemTable& table = *form.table;
};

TEST_F(InvoiceItemTableTest, belongsToItsForm) {
  EXPECT_EQ(table.getForm(), &form);
  EXPECT_EQ(table.getForm()->getInvoice()->getItems().no(), table.getNumRows());
}

TEST_F(InvoiceItemTableTest, isNotEditedInPlaceAndHasNoRowHeader) {
  EXPECT_FALSE(table.isEditable());
  EXPECT_EQ(table.getRowHeaderWidth(), 0);
}

TEST_F(InvoiceItemTableTest, selectsWholeRows) {
  table.selectRange(1, 2, 1, 1);
  EXPECT_EQ(selectedRows(), Rows(1, 2));
  EXPECT_TRUE(areColumnsWhole());
  EXPECT_TRUE(table.isRowSelected(1));
  EXPECT_TRUE(table.isRowSelected(2));
  EXPECT_FALSE(table.isRowSelected(3));
}

TEST_F(InvoiceItemTableTest, selectsNoColumnsFromTheHeader) {
  table.handle(table.getColumnHeader(), FXSEL(SEL_COMMAND, FXTable::ID_SELECT_COLUMN_INDEX), nullptr);
  EXPECT_EQ(selectedRows(), kNoRows);
}

TEST_F(InvoiceItemTableTest, knowsWhichRowsAreInTheSelection) {
  EXPECT_FALSE(table.isInSelection(-1));
  EXPECT_FALSE(table.isInSelection(0));
  table.selectRange(1, 2, 0, 0);
  EXPECT_FALSE(table.isInSelection(0));
  EXPECT_TRUE(table.isInSelection(1));
  EXPECT_TRUE(table.isInSelection(2));
  EXPECT_FALSE(table.isInSelection(3));
}

TEST_F(InvoiceItemTableTest, selectOnlyMakesARowTheCurrentAndTheOnlySelectedOne) {
  table.selectRange(0, 2, 0, 0);
  table.selectOnly(3);
  EXPECT_EQ(table.getCurrentRow(), 3);
  EXPECT_EQ(table.getCurrentColumn(), 0);
  EXPECT_EQ(selectedRows(), Rows(3, 3));
  EXPECT_TRUE(areColumnsWhole());
}

TEST_F(InvoiceItemTableTest, selectOnlyKeepsTheCurrentColumn) {
  table.setCurrentItem(0, 2);
  table.selectOnly(1);
  EXPECT_EQ(table.getCurrentColumn(), 2);
}

TEST_F(InvoiceItemTableTest, selectOnlyPassesOverWhatIsNoRow) {
  table.selectOnly(1);
  for (const FXint row : {-1, 4, 1000}) table.selectOnly(row);
  EXPECT_EQ(table.getCurrentRow(), 1);
  EXPECT_EQ(selectedRows(), Rows(1, 1));
}

TEST_F(InvoiceItemTableTest, selectsTheRowThatTheKeysMoveTo) {
  table.setCurrentItem(-1, -1);
  pressKey(table, KEY_Down);
  EXPECT_EQ(selectedRows(), Rows(0, 0));
  pressKey(table, KEY_Down);
  EXPECT_EQ(table.getCurrentRow(), 1);
  EXPECT_EQ(selectedRows(), Rows(1, 1));
  EXPECT_TRUE(areColumnsWhole());
  pressKey(table, KEY_End, "", CONTROLMASK);
  EXPECT_EQ(selectedRows(), Rows(3, 3));
  pressKey(table, KEY_Home, "", CONTROLMASK);
  EXPECT_EQ(selectedRows(), Rows(0, 0));
  pressKey(table, KEY_Right);
  EXPECT_EQ(table.getCurrentColumn(), 1);
  EXPECT_EQ(selectedRows(), Rows(0, 0));
}

TEST_F(InvoiceItemTableTest, extendsTheSelectionByRowsWithTheShiftKey) {
  table.selectOnly(2);
  pressKey(table, KEY_Up, "", SHIFTMASK);
  EXPECT_EQ(selectedRows(), Rows(1, 2));
  EXPECT_TRUE(areColumnsWhole());
  pressKey(table, KEY_Down, "", SHIFTMASK);
  pressKey(table, KEY_Down, "", SHIFTMASK);
  EXPECT_EQ(selectedRows(), Rows(2, 3));
}

TEST_F(InvoiceItemTableTest, selectsAllRowsWithControlA) {
  pressKey(table, KEY_a, "\x01", CONTROLMASK);
  EXPECT_EQ(selectedRows(), Rows(0, 3));
}

TEST_F(InvoiceItemTableTest, leavesTheKeysOfCellsToTheWindow) {
  struct Key {
    FXint code;
    const char* text;
    FXint state;
  };
  const Key keys[] = {{KEY_Tab, "\t", 0},
                      {KEY_Tab, "\t", SHIFTMASK},
                      {KEY_ISO_Left_Tab, "", SHIFTMASK},
                      {KEY_F2, "", 0},
                      {KEY_Delete, "\177", 0},
                      {KEY_KP_Delete, "\177", 0},
                      {KEY_Insert, "", 0},
                      {KEY_q, "q", 0},
                      {KEY_eacute, "é", 0},
                      {KEY_s, "\x13", CONTROLMASK},
                      {KEY_space, " ", 0}};
  table.setCurrentItem(1, 1);
  for (const Key& key : keys) {
    EXPECT_EQ(pressKey(table, key.code, key.text, key.state), 0) << key.code;
    EXPECT_EQ(table.getCurrentColumn(), 1) << key.code;
    EXPECT_EQ(table.getCurrentRow(), 1) << key.code;
  }
}

TEST_F(InvoiceItemTableTest, asksItsTargetBeforeItLeavesAKeyToTheWindow) {
  TestSupport::RecordingTarget target([](const void*) { return ""; });
  target.answered = {SEL_KEYPRESS};
  table.setTarget(&target);
  table.setSelector(7);
  EXPECT_EQ(pressKey(table, KEY_F2), 1);
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 " + std::to_string(KEY_F2)));
}

/// Hears of double clicks.
class DoubleClickTarget : public FXObject {
 public:
  long handle(FXObject*, FXSelector selector, void* data) override {
    if (selector != FXSEL(SEL_DOUBLECLICKED, 7)) return 0;
    rows.push_back(static_cast<FXTablePos*>(data)->row);
    return 1;
  }
  std::vector<FXint> rows;
};

TEST_F(InvoiceItemTableTest, tellsItsTargetOfReturnAsOfADoubleClick) {
  DoubleClickTarget target;
  table.setTarget(&target);
  table.setSelector(7);
  table.selectOnly(2);
  EXPECT_EQ(pressKey(table, KEY_Return, "\r"), 1);
  EXPECT_THAT(target.rows, ElementsAre(2));
}

TEST_F(InvoiceItemTableTest, standsAllKeysAlsoWhenItIsEmpty) {
  for (const auto& [rows, columns] : {std::pair(0, 3), std::pair(0, 0), std::pair(3, 0)}) {
    table.setTableSize(rows, columns);
    for (const FXint code : {KEY_Up, KEY_Down, KEY_Left, KEY_Right, KEY_Home, KEY_End, KEY_Page_Up, KEY_Page_Down,
                             KEY_Tab, KEY_Menu, KEY_Delete, KEY_F2, KEY_Escape}) {
      for (const FXint state : {0, static_cast<int>(SHIFTMASK), static_cast<int>(CONTROLMASK)})
        pressKey(table, code, "", state);
    }
    pressKey(table, KEY_a, "\x01", CONTROLMASK);
    EXPECT_FALSE(table.isAnythingSelected()) << rows << " rows, " << columns << " columns";
  }
}

TEST_F(InvoiceItemTableTest, takesNoKeysWhileItIsDisabled) {
  table.disable();
  for (const FXint code : {KEY_Down, KEY_Menu, KEY_F2}) EXPECT_EQ(pressKey(table, code), 0) << code;
  EXPECT_EQ(selectedRows(), kNoRows);
}

TEST_F(InvoiceItemTableTest, opensNoEmptyMenu) {
  table.setCurrentItem(0, 0);
  EXPECT_EQ(pressKey(table, KEY_Menu), 1);
  EXPECT_FALSE(table.getMenu()->shown());
}

TEST_F(InvoiceItemTableTest, ownsItsMenuSoThatACommandFindsItAsItsOwnersOwner) {
  TestMenuPlugin plugin;
  const FXMenuCommand* command = table.appendPluginEntry(&plugin);
  EXPECT_EQ(command->getOwner(), table.getMenu());
  EXPECT_EQ(command->getOwner()->getOwner(), &table);
}

TEST_F(InvoiceItemTableTest, makesAnEntryWithTheTextOfThePlugin) {
  TestMenuPlugin plugin("Egyéb tételadatok...\t\tSúgó");
  const FXMenuCommand* command = table.appendPluginEntry(&plugin);
  EXPECT_EQ(command->getText(), "Egyéb tételadatok...");
  EXPECT_EQ(command->getAccelText(), "");
  EXPECT_EQ(command->getHelpText(), "Súgó");
  EXPECT_EQ(command->getTarget(), &plugin);
  EXPECT_EQ(command->getSelector(), InvoiceItemMenuPlugin::ID_MENU_ITEM);
}

TEST_F(InvoiceItemTableTest, showsTheIconOfTheModuleBesideItsEntry) {
  class Container : public Plugin::PluginContainer {
   public:
    Container() : PluginContainer(&testAccount(), "Code", "", "", "") {}
    FXIcon* getIcon16() override { return testAccount().getAddIcon(); }
  };
  Container container;
  TestMenuPlugin plugin("Mutasd", 0, &container);
  EXPECT_EQ(table.appendPluginEntry(&plugin)->getIcon(), testAccount().getAddIcon());
  TestMenuPlugin withoutContainer;
  EXPECT_EQ(table.appendPluginEntry(&withoutContainer)->getIcon(), nullptr);
}

TEST_F(InvoiceItemTableTest, putsTheEntriesOfModulesBehindTheFormsOwnCommands) {
  new FXMenuCommand(table.getMenu(), "Szerkesztés");
  new FXMenuCommand(table.getMenu(), "Törlés");
  EXPECT_THAT(menuTexts(), ElementsAre("Szerkesztés", "Törlés")) << "a separator needs something on both sides";
  TestMenuPlugin first("Első");
  TestMenuPlugin second("Második");
  table.appendPluginEntry(&first);
  table.appendPluginEntry(&second);
  EXPECT_THAT(menuTexts(), ElementsAre("Szerkesztés", "Törlés", "-", "Első", "Második"));
}

TEST_F(InvoiceItemTableTest, hasNoSeparatorAboveEntriesThatStandAlone) {
  TestMenuPlugin plugin("Egyedül");
  table.appendPluginEntry(&plugin);
  EXPECT_THAT(menuTexts(), ElementsAre("Egyedül"));
}

TEST_F(InvoiceItemTableTest, ordersTheEntriesByTheirPositions) {
  new FXMenuCommand(table.getMenu(), "Saját");
  TestMenuPlugin five("5a", 5);
  TestMenuPlugin nine("9", 9);
  TestMenuPlugin below("-3", -3);
  TestMenuPlugin fiveAgain("5b", 5);
  TestMenuPlugin zero("0", 0);
  for (TestMenuPlugin* plugin : {&five, &nine, &below, &fiveAgain, &zero}) table.appendPluginEntry(plugin);
  EXPECT_THAT(menuTexts(), ElementsAre("Saját", "-", "-3", "0", "5a", "5b", "9"));
}

TEST_F(InvoiceItemTableTest, asksThePluginWhetherItsEntryCanBePicked) {
  TestMenuPlugin plugin;
  FXMenuCommand* command = table.appendPluginEntry(&plugin);
  plugin.enabled = false;
  command->handle(nullptr, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_FALSE(command->isEnabled());
  plugin.enabled = true;
  command->handle(nullptr, FXSEL(SEL_UPDATE, 0), nullptr);
  EXPECT_TRUE(command->isEnabled());
}

TEST_F(InvoiceItemTableTest, runsAnEntryWithItsMenuCommandAsSender) {
  TestMenuPlugin plugin;
  TestMenuPlugin other;
  table.appendPluginEntry(&other);
  FXMenuCommand* command = table.appendPluginEntry(&plugin);
  EXPECT_TRUE(table.runPluginEntry(&plugin));
  EXPECT_THAT(plugin.senders, ElementsAre(command));
  EXPECT_THAT(other.senders, IsEmpty());
}

TEST_F(InvoiceItemTableTest, runsNoEntryThatCannotBePickedNow) {
  TestMenuPlugin plugin;
  table.appendPluginEntry(&plugin);
  plugin.enabled = false;
  EXPECT_FALSE(table.runPluginEntry(&plugin));
  EXPECT_THAT(plugin.senders, IsEmpty());
  plugin.enabled = true;
  EXPECT_TRUE(table.runPluginEntry(&plugin));
  EXPECT_EQ(plugin.senders.size(), 1u);
}

TEST_F(InvoiceItemTableTest, runsNoEntryThatWasNeverAdded) {
  TestMenuPlugin plugin;
  EXPECT_FALSE(table.runPluginEntry(&plugin));
  EXPECT_THAT(plugin.senders, IsEmpty());
}

TEST_F(InvoiceItemTableTest, isMadeByItsMetaClass) {
  EXPECT_TRUE(table.isMemberOf(&FXTable::metaClass));
  EXPECT_STREQ(table.getClassName(), "InvoiceItemTable");
}

}  // namespace
}  // namespace Quillane
