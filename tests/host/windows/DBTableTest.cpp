// The table of records without a display: what it shows, what it takes, and what it remembers of what was changed.
#include "plugin/contract/DBTable.h"

#include <fxkeys.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/windows/DBTableItems.h"
#include "tests/host/windows/DBTableFixture.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using TestSupport::pressKey;

namespace Quillane {
namespace {

class DBTableTest : public testing::Test, protected PartTest {
 protected:
  DBTableTest() : window(&testAccount(), "test") {
    table = new DBTable(&window, &owner, 103);
    owner.table = table;
    load(*table);
  }

  void command(FXuint id) const { table->handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr); }

  void pasteAt(FXint row, FXint column, const char* pasted) const {
    table->killSelection();
    table->setCurrentItem(row, column);
    table->pasteText(pasted);
  }

  FXMenuCommand* menuCommand(FXuint id) const {
    for (FXWindow* entry = table->getMenu()->getFirst(); entry; entry = entry->getNext()) {
      auto* found = dynamic_cast<FXMenuCommand*>(entry);
      if (found && found->getSelector() == id) return found;
    }
    return nullptr;
  }

  const Lines loaded = {"1: Csavar|vas|x|M6", "2: Anya|réz|-|", "5: Alátét|műanyag|-|"};

  FXMainWindow window;
  PartOwner owner;
  DBTable* table;  // the window's
};

TEST_F(DBTableTest, isKnownByItsName) { EXPECT_STREQ(table->getClassName(), "DBTable"); }

TEST_F(DBTableTest, hasTheNumbersOfItsCommandsThatModulesKnow) {
  EXPECT_EQ(DBTable::ID_ADD_ROW, 88);
  EXPECT_EQ(DBTable::ID_DELETE_ROWS, 90);
  EXPECT_EQ(DBTable::COLUMN_CHECK, 2);
}

// ---- what is loaded

TEST_F(DBTableTest, showsWhatIsLoaded) {
  EXPECT_EQ(rows(*table), loaded);
  EXPECT_EQ(table->getRowLoader()->getNumRows(), 3);
  for (FXint row = 0; row < 3; ++row) {
    EXPECT_FALSE(table->isNewRow(row));
    EXPECT_FALSE(table->isChangedRow(row));
  }
  EXPECT_EQ(table->getCurrentRow(), 0);
  EXPECT_EQ(table->getCurrentColumn(), 0);
}

TEST_F(DBTableTest, knowsTheKeysBehindItsTexts) {
  EXPECT_EQ(table->getValueKey(1, NAME), "Anya");
  EXPECT_EQ(table->getValueKey(1, KIND), "2");
  EXPECT_EQ(table->getValueKey(0, STOCKED), "1");
  EXPECT_EQ(table->getValueKey(2, STOCKED), "") << "as it was loaded";
}

TEST_F(DBTableTest, answersForCellsThatThereAreNot) {
  for (const auto& [row, column] : {std::pair(-1, 0), {0, -1}, {3, 0}, {0, 4}}) {
    EXPECT_EQ(table->getValueKey(row, column), "");
    EXPECT_FALSE(table->isChecked(row, column));
    table->setValueKey(row, column, "x");
  }
  EXPECT_FALSE(table->isNewRow(-1));
  EXPECT_FALSE(table->isNewRow(3));
  EXPECT_FALSE(table->isChangedRow(3));
  EXPECT_EQ(table->getColumnType(4), DBTable::COLUMN_TEXT);
  table->setColumnType(4, DBTable::COLUMN_CHECK);
  table->setColumnValues(-1, "1\ta", true);
  table->removeRows(2, 2);
  table->insertRows(5, 1);
  EXPECT_EQ(rows(*table), loaded);
}

TEST_F(DBTableTest, keepsAKeyThatIsNoneOfTheChoices) {
  company.run("update t_part set kind=7 where t_part_id=2");
  load(*table);
  EXPECT_EQ(rows(*table)[1], "2: Anya|7|-|");
  EXPECT_EQ(table->getValueKey(1, KIND), "7");
  EXPECT_FALSE(table->isChangedRow(1));
}

TEST_F(DBTableTest, dropsValuesThatHaveNoColumnAndLeavesColumnsWithoutAValueEmpty) {
  table->setTableSize(0, 2, FALSE);
  for (const char* const value : {"9", "a", "b", "c"}) {
    static int column = 0;
    table->getRowLoader()->processValue(column++, "any", value);
  }
  table->getRowLoader()->processValue(0, "any", "10");
  EXPECT_EQ(rows(*table), (Lines{"9: a|b", "10: |"}));
}

TEST_F(DBTableTest, isANewTableAfterItsSizeWasSet) {
  table->setItemText(0, NAME, "más");
  table->getDeletedKeys().push_back(2);
  table->setTableSize(2, 3, FALSE);
  EXPECT_EQ(rows(*table), (Lines{"-1: ||", "-2: ||"}));
  EXPECT_TRUE(table->getDeletedKeys().empty());
  EXPECT_EQ(table->getColumnType(STOCKED), DBTable::COLUMN_TEXT);
  EXPECT_TRUE(table->isNewRow(0));
}

TEST_F(DBTableTest, keepsWhatACellHoldsWhenItsColumnsTypeIsSet) {
  table->setColumnType(KIND, DBTable::COLUMN_TEXT);
  table->setColumnValues(NOTE, "M6\nM8", false);
  EXPECT_EQ(rows(*table), (Lines{"1: Csavar|1|x|M6", "2: Anya|2|-|", "5: Alátét|3|-|"}));
  EXPECT_FALSE(table->isChangedRow(0));
  EXPECT_EQ(table->getValueKey(0, NOTE), "M6") << "a choice without a key of its own";
  table->setItemText(1, NOTE, "M8");
  EXPECT_EQ(table->getValueKey(1, NOTE), "M8");
}

// ---- new rows

TEST_F(DBTableTest, givesNewRowsKeysOfTheirOwn) {
  command(DBTable::ID_ADD_ROW);
  command(DBTable::ID_ADD_ROW);
  EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[1], loaded[2], "-1: ||-|", "-2: ||-|"}));
  EXPECT_TRUE(table->isNewRow(3));
  EXPECT_FALSE(table->isChangedRow(3));
  EXPECT_EQ(table->getValueKey(3, KIND), "") << "nothing is chosen yet";
  EXPECT_EQ(table->getValueKey(3, STOCKED), "0");
  EXPECT_EQ(table->getCurrentRow(), 4);
  EXPECT_EQ(table->getCurrentColumn(), 0);
}

TEST_F(DBTableTest, givesNoKeyTwice) {
  command(DBTable::ID_ADD_ROW);
  table->removeRows(3, 1);
  command(DBTable::ID_ADD_ROW);
  EXPECT_EQ(rows(*table)[3], "-2: ||-|");
}

TEST_F(DBTableTest, givesNoKeyThatIsStored) {
  company.run("update t_part set t_part_id=-1 where t_part_id=2");
  load(*table);
  EXPECT_EQ(rows(*table)[0], "-1: Anya|réz|-|");
  command(DBTable::ID_ADD_ROW);
  EXPECT_EQ(rows(*table)[3], "-2: ||-|");
  EXPECT_FALSE(table->isNewRow(0));
  EXPECT_TRUE(table->isNewRow(3));
}

TEST_F(DBTableTest, takesWhatIsBeingTypedBeforeItAddsARow) {
  table->startInput(0, NAME);
  auto* field = dynamic_cast<FXTextField*>(table->getFirst());
  for (FXWindow* child = table->getFirst(); child && !field; child = child->getNext())
    field = dynamic_cast<FXTextField*>(child);
  ASSERT_NE(field, nullptr);
  field->setText("Szeg");
  command(DBTable::ID_ADD_ROW);
  EXPECT_EQ(table->getItemText(0, NAME), "Szeg");
  EXPECT_EQ(table->getNumRows(), 4);
}

TEST_F(DBTableTest, addsAndDeletesNothingWhileItIsReadOnly) {
  table->setEditable(FALSE);
  command(DBTable::ID_ADD_ROW);
  command(DBTable::ID_DELETE_ROWS);
  table->setCurrentItem(0, STOCKED);
  command(DBTable::ID_TOGGLE);
  table->selectRange(0, 0, 0, 3);
  command(FXTable::ID_CUT_SEL);
  command(FXTable::ID_DELETE_SEL);
  table->pasteText("x");
  EXPECT_EQ(rows(*table), loaded);
  EXPECT_EQ(owner.told, 0);
}

// ---- choices and check boxes

TEST_F(DBTableTest, choosesByTheText) {
  table->setItemText(0, KIND, "műanyag");
  EXPECT_EQ(table->getValueKey(0, KIND), "3");
  table->setItemText(0, KIND, " réz ");
  EXPECT_EQ(table->getValueKey(0, KIND), "2") << "blanks around a text are no part of it";
  table->setItemText(0, KIND, "fa");
  EXPECT_EQ(table->getValueKey(0, KIND), "2") << "no choice";
  table->setItemText(0, KIND, "");
  EXPECT_EQ(table->getValueKey(0, KIND), "");
  EXPECT_EQ(table->getItemText(0, KIND), "");
}

TEST_F(DBTableTest, offersTheChoicesInTheCellsEditor) {
  auto* item = dynamic_cast<DBTableChoiceItem*>(table->getItem(1, KIND));
  ASSERT_NE(item, nullptr);
  std::unique_ptr<FXComboBox> box(static_cast<FXComboBox*>(item->getControlFor(table)));
  EXPECT_EQ(box->getNumItems(), 3);
  EXPECT_EQ(box->getCurrentItem(), 1);
  EXPECT_EQ(box->getText(), "réz");
  EXPECT_FALSE(box->isEditable());
  box->setCurrentItem(2);
  item->setFromControl(box.get());
  EXPECT_EQ(table->getValueKey(1, KIND), "3");
}

TEST_F(DBTableTest, leavesAnUnknownKeyAloneWhenItsEditorIsClosed) {
  table->setValueKey(1, KIND, "7");
  auto* item = dynamic_cast<DBTableChoiceItem*>(table->getItem(1, KIND));
  std::unique_ptr<FXComboBox> box(static_cast<FXComboBox*>(item->getControlFor(table)));
  EXPECT_EQ(box->getText(), "7");
  item->setFromControl(box.get());
  EXPECT_EQ(table->getValueKey(1, KIND), "7");
}

TEST_F(DBTableTest, tellsChoicesOfOneTextApart) {
  table->setColumnValues(KIND, "1\tfém\n2\tfém\n3\tegyéb", true);
  auto* item = dynamic_cast<DBTableChoiceItem*>(table->getItem(1, KIND));
  std::unique_ptr<FXComboBox> box(static_cast<FXComboBox*>(item->getControlFor(table)));
  EXPECT_EQ(box->getCurrentItem(), 1);
  item->setFromControl(box.get());
  EXPECT_EQ(table->getValueKey(1, KIND), "2");
}

TEST_F(DBTableTest, hasNoChoicesUntilItIsGivenThem) {
  table->setColumnType(NOTE, DBTable::COLUMN_CHOICE);
  EXPECT_EQ(table->getItemText(0, NOTE), "M6") << "shown as it is";
  auto* item = dynamic_cast<DBTableChoiceItem*>(table->getItem(0, NOTE));
  std::unique_ptr<FXComboBox> box(static_cast<FXComboBox*>(item->getControlFor(table)));
  EXPECT_EQ(box->getNumItems(), 0);
}

TEST_F(DBTableTest, togglesTheCurrentCheckBox) {
  table->setCurrentItem(0, STOCKED);
  command(DBTable::ID_TOGGLE);
  EXPECT_EQ(table->getValueKey(0, STOCKED), "0");
  EXPECT_EQ(owner.replaced, 1);
  command(DBTable::ID_TOGGLE);
  EXPECT_EQ(table->getValueKey(0, STOCKED), "1");
  table->setCurrentItem(0, NOTE);
  command(DBTable::ID_TOGGLE);
  EXPECT_EQ(rows(*table), loaded) << "a text is no check box";
}

TEST_F(DBTableTest, opensNoEditorInACheckBox) {
  table->startInput(0, STOCKED);
  pressKey(*table, KEY_F2);
  table->acceptInput(TRUE);
  EXPECT_EQ(rows(*table), loaded);
}

// ---- what is remembered

TEST_F(DBTableTest, findsTheRowsThatWereChanged) {
  table->setItemText(0, NAME, "Szeg");
  table->setItemText(1, KIND, "vas");
  EXPECT_TRUE(table->isChangedRow(0));
  EXPECT_TRUE(table->isChangedRow(1));
  EXPECT_FALSE(table->isChangedRow(2));
  EXPECT_FALSE(table->isNewRow(0));
  table->setItemText(0, NAME, "Csavar");
  EXPECT_FALSE(table->isChangedRow(0)) << "as it was";
  table->setCurrentItem(2, STOCKED);
  command(DBTable::ID_TOGGLE);
  EXPECT_TRUE(table->isChangedRow(2));
}

TEST_F(DBTableTest, keepsTrackOfRowsThatMove) {
  table->setItemText(2, NAME, "Szeg");
  table->removeRows(0, 1);
  table->insertRows(0, 1);
  EXPECT_EQ(rows(*table), (Lines{"-1: ||-|", loaded[1], "5: Szeg|műanyag|-|"}));
  EXPECT_TRUE(table->isNewRow(0));
  EXPECT_FALSE(table->isChangedRow(1));
  EXPECT_TRUE(table->isChangedRow(2));
  EXPECT_TRUE(table->getDeletedKeys().empty()) << "whoever removes a row says whether it is deleted";
}

// ---- deleting

TEST_F(DBTableTest, leavesDeletingToItsTarget) {
  command(DBTable::ID_ADD_ROW);
  table->selectRange(2, 3, 0, 0);
  command(DBTable::ID_DELETE_ROWS);
  EXPECT_EQ(owner.told, 1);
  EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[1]}));
  EXPECT_EQ(table->getDeletedKeys(), std::vector<FXint>{5}) << "a new row has no key to delete";
}

TEST_F(DBTableTest, deletesTheRowsItselfWithoutATarget) {
  table->setTarget(nullptr);
  command(DBTable::ID_ADD_ROW);
  table->selectRange(2, 3, 1, 2);
  command(DBTable::ID_DELETE_ROWS);
  EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[1]}));
  EXPECT_EQ(table->getDeletedKeys(), std::vector<FXint>{5});
  EXPECT_FALSE(table->isAnythingSelected());
}

TEST_F(DBTableTest, deletesTheCurrentRowWhenNoneIsSelected) {
  table->setTarget(nullptr);
  table->setCurrentItem(1, NOTE);
  command(DBTable::ID_DELETE_ROWS);
  EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[2]}));
  EXPECT_EQ(table->getDeletedKeys(), std::vector<FXint>{2});
}

TEST_F(DBTableTest, deletesDownToTheLastRowAndGoesOn) {
  table->setTarget(nullptr);
  for (int times = 0; times < 5; ++times) command(DBTable::ID_DELETE_ROWS);
  EXPECT_EQ(table->getNumRows(), 0);
  EXPECT_EQ(table->getDeletedKeys(), (std::vector<FXint>{1, 2, 5}));
  command(DBTable::ID_ADD_ROW);
  EXPECT_EQ(rows(*table), Lines{"-1: ||-|"});
  EXPECT_EQ(table->getCurrentColumn(), 0);
}

TEST_F(DBTableTest, closesTheEditorOfARowThatIsRemoved) {
  for (const PartColumn column : {NAME, KIND}) {
    load(*table);
    table->startInput(1, column);
    table->removeRows(1, 1);
    EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[2]}));
    table->acceptInput(TRUE);
    EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[2]})) << "no row gets what was typed for another";
  }
}

TEST_F(DBTableTest, asksForTheStateOfDeletingBeforeTheKeyActs) {
  table->setCurrentItem(1, 0);
  owner.allows = false;
  pressKey(*table, KEY_Delete);
  EXPECT_EQ(owner.asked, 1);
  EXPECT_EQ(owner.told, 0);
  EXPECT_FALSE(menuCommand(DBTable::ID_DELETE_ROWS)->isEnabled());
  owner.allows = true;
  pressKey(*table, KEY_KP_Delete);
  EXPECT_EQ(owner.asked, 2);
  EXPECT_EQ(owner.told, 1);
  EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[2]}));
}

TEST_F(DBTableTest, asksNothingWhereThereIsNothingToDelete) {
  table->removeRows(0, 3);
  pressKey(*table, KEY_Delete);
  EXPECT_EQ(owner.asked, 0);
  EXPECT_EQ(owner.told, 0);
}

// ---- keys

TEST_F(DBTableTest, addsARowWithInsertAndTogglesWithSpace) {
  pressKey(*table, KEY_Insert);
  EXPECT_EQ(table->getNumRows(), 4);
  table->setCurrentItem(3, STOCKED);
  pressKey(*table, KEY_space, " ");
  EXPECT_EQ(rows(*table)[3], "-1: ||x|");
}

TEST_F(DBTableTest, goesOnInTheNextRowWithTabAndLeavesTheLastOne) {
  table->setCurrentItem(0, NOTE);
  EXPECT_EQ(pressKey(*table, KEY_Tab), 1);
  EXPECT_EQ(table->getCurrentRow(), 1);
  EXPECT_EQ(table->getCurrentColumn(), 0);
  EXPECT_EQ(pressKey(*table, KEY_Tab, "", SHIFTMASK), 1);
  EXPECT_EQ(table->getCurrentRow(), 0);
  EXPECT_EQ(table->getCurrentColumn(), NOTE);
  table->setCurrentItem(2, NOTE);
  EXPECT_EQ(pressKey(*table, KEY_Tab), 0) << "the window's";
  table->setCurrentItem(0, 0);
  EXPECT_EQ(pressKey(*table, KEY_ISO_Left_Tab), 0);
  table->removeRows(0, 3);
  EXPECT_EQ(pressKey(*table, KEY_Tab), 0) << "a table without rows";
}

TEST_F(DBTableTest, leavesEscapeToItsWindowWhenNothingIsEdited) { EXPECT_EQ(pressKey(*table, KEY_Escape), 0); }

// ---- the clipboard

TEST_F(DBTableTest, pastesCellsAndAddsTheRowsThatItNeeds) {
  pasteAt(2, 0, "Szeg\tvas\t1\tkettő, három\tsok\nTipli\tműanyag\t0\n");
  EXPECT_EQ(rows(*table), (Lines{loaded[0], loaded[1], "5: Szeg|vas|x|kettő, három", "-1: Tipli|műanyag|-|"}));
  EXPECT_TRUE(table->isChangedRow(2));
  EXPECT_TRUE(table->isNewRow(3));
  EXPECT_EQ(table->getNumColumns(), PART_COLUMN_COUNT);
  EXPECT_EQ(owner.replaced, 1);
}

TEST_F(DBTableTest, leavesCellsAloneThatCannotHoldWhatIsPasted) {
  pasteAt(0, KIND, "fa\tigen\n réz \t 1 ");
  EXPECT_EQ(rows(*table), (Lines{loaded[0], "2: Anya|réz|x|", loaded[2]}));
}

TEST_F(DBTableTest, pastesFromTheFirstSelectedCellOn) {
  table->setCurrentItem(2, NOTE);
  table->selectRange(0, 1, KIND, NOTE);
  table->pasteText("réz\t0\tM8");
  EXPECT_EQ(rows(*table)[0], "1: Csavar|réz|-|M8");
  EXPECT_TRUE(table->isItemSelected(0, KIND));
  EXPECT_FALSE(table->isItemSelected(1, KIND)) << "what was pasted is selected";
}

TEST_F(DBTableTest, pastesIntoATableWithoutRows) {
  table->removeRows(0, 3);
  table->pasteText("Szeg\tvas");
  EXPECT_EQ(rows(*table), Lines{"-1: Szeg|vas|-|"});
}

TEST_F(DBTableTest, emptiesWhatIsClearedAndKeepsTheCells) {
  for (const FXuint id : {FXTable::ID_DELETE_SEL, FXTable::ID_CUT_SEL}) {
    load(*table);
    table->selectRange(0, 1, 0, 3);
    command(id);
    EXPECT_EQ(rows(*table), (Lines{"1: ||-|", "2: ||-|", loaded[2]})) << id;
    EXPECT_EQ(table->getValueKey(0, KIND), "");
    table->setItemText(0, KIND, "vas");
    EXPECT_EQ(table->getValueKey(0, KIND), "1") << "still a cell with choices";
    EXPECT_TRUE(table->isChangedRow(0));
  }
}

}  // namespace
}  // namespace Quillane
