// The item data dialog without a display: how it is built for every shape of item data, and what its table tells it.
#include "ui/ItemDataDialog.h"

#include <gtest/gtest.h>

#include "fxext/FXComboBox.h"
#include "fxext/FXDateInput.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/contract/Tarnwell.h"
#include "tests/itemdata/EditorFixture.h"
#include "tests/plugin/TextCatalogue.h"
#include "tests/ui/DialogFixture.h"

using namespace FX;
using Quillane::Plugin::ItemData::UI::ItemDataTable;

namespace Quillane::Plugin::ItemData {
namespace {

using ItemDataDialogTest = DialogTest;

TEST_F(ItemDataDialogTest, isTitledByTheItemAndAsWideAsStated) {
  open(store({11}, {}));
  EXPECT_EQ(dialog->getTitle(), "Fúrógép egyéb tételadatai");
  EXPECT_EQ(dialog->getWidth(), 600);
  EXPECT_EQ(dialog->getDecorations(), static_cast<FXuint>(DECOR_ALL));
  EXPECT_EQ(paddingsOf(*dialog), (Paddings{10, 10, 10, 10}));
  EXPECT_EQ(dialog->getHSpacing(), 4);
  EXPECT_EQ(dialog->getVSpacing(), 4);
}

TEST_F(ItemDataDialogTest, showsOnlyTheSeparatorAndTheButtonForAnItemWithoutItemData) {
  open(newItem(3));
  EXPECT_EQ(dialog->getTable(), nullptr);
  const FXWindow* frame = dialog->getFirst();
  ASSERT_EQ(frame->numChildren(), 2);
  EXPECT_EQ(frame->getFirst()->getMetaClass(), &FXHorizontalSeparator::metaClass);
  ASSERT_EQ(frame->getLast()->numChildren(), 1);
  EXPECT_EQ(frame->getLast()->getFirst()->getMetaClass(), &FXButton::metaClass);
}

TEST_F(ItemDataDialogTest, hasOneButtonThatAccepts) {
  open(store({13}, {}));
  const auto buttons = widgetsIn<FXButton>(*dialog->getFirst()->getLast());
  ASSERT_EQ(buttons.size(), 1u);
  EXPECT_EQ(buttons[0]->getText(), "OK");
  EXPECT_EQ(buttons[0]->getTarget(), dialog.get());
  EXPECT_EQ(buttons[0]->getSelector(), 61u);
  EXPECT_EQ(paddingsOf(*buttons[0]), (Paddings{20, 20, 2, 2}));
  EXPECT_EQ(optionsOf(*buttons[0]),
            static_cast<FXuint>(BUTTON_NORMAL | BUTTON_INITIAL | BUTTON_DEFAULT | LAYOUT_RIGHT));
  EXPECT_EQ(buttons[0]->getIcon(), nullptr);
}

TEST_F(ItemDataDialogTest, hasItsFieldsAboveItsTableAndTheButtonBelow) {
  open(store({11, 13}, {"0 11 'R'", "1 -1 '1'", "1 13 'A'"}));
  const auto& frame = dynamic_cast<FXVerticalFrame&>(*dialog->getFirst());
  EXPECT_EQ(optionsOf(frame), static_cast<FXuint>(LAYOUT_FILL));
  EXPECT_EQ(paddingsOf(frame), (Paddings{4, 4, 4, 4}));
  EXPECT_EQ(frame.getVSpacing(), 4);
  ASSERT_EQ(frame.numChildren(), 4);

  const auto& fields = dynamic_cast<FXMatrix&>(*frame.getFirst());
  EXPECT_EQ(optionsOf(fields), static_cast<FXuint>(MATRIX_BY_COLUMNS | LAYOUT_FILL_X));
  EXPECT_EQ(fields.getNumColumns(), 2);
  EXPECT_EQ(paddingsOf(fields), (Paddings{4, 4, 4, 4}));
  EXPECT_EQ(fields.getHSpacing(), 4);
  EXPECT_EQ(fields.getVSpacing(), 4);
  const auto& label = dynamic_cast<FXLabel&>(*fields.getFirst());
  EXPECT_EQ(label.getIcon(), nullptr);
  EXPECT_EQ(label.getLayoutHints(), static_cast<FXuint>(LAYOUT_RIGHT));
  EXPECT_EQ(paddingsOf(label), (Paddings{2, 2, 2, 2}));

  const auto& around = dynamic_cast<FXHorizontalFrame&>(*fields.getNext());
  EXPECT_EQ(optionsOf(around), static_cast<FXuint>(FRAME_LINE | LAYOUT_FILL));
  EXPECT_EQ(paddingsOf(around), (Paddings{0, 0, 0, 0}));
  EXPECT_EQ(around.getHSpacing(), 4);
  EXPECT_EQ(around.getFirst(), table());
  EXPECT_EQ(table()->getTableStyle(), static_cast<FXuint>(TABLE_COL_SIZABLE));
  EXPECT_EQ(table()->getLayoutHints(), static_cast<FXuint>(LAYOUT_FILL));
  EXPECT_EQ((Paddings{table()->getMarginLeft(), table()->getMarginRight(), table()->getMarginTop(),
                      table()->getMarginBottom()}),
            (Paddings{2, 2, 2, 2}));

  const auto& separator = dynamic_cast<FXHorizontalSeparator&>(*around.getNext());
  EXPECT_EQ(optionsOf(separator), static_cast<FXuint>(SEPARATOR_GROOVE | LAYOUT_FILL_X | LAYOUT_SIDE_BOTTOM));
  EXPECT_EQ(paddingsOf(separator), (Paddings{1, 1, 0, 0}));
  const auto& buttons = dynamic_cast<FXHorizontalFrame&>(*separator.getNext());
  EXPECT_EQ(optionsOf(buttons), static_cast<FXuint>(LAYOUT_FILL_X | LAYOUT_SIDE_BOTTOM));
  EXPECT_EQ(paddingsOf(buttons), (Paddings{4, 4, 4, 4}));
  EXPECT_EQ(buttons.getHSpacing(), 4);
}

TEST_F(ItemDataDialogTest, translatesItsTextsAndNoNameOfAVariable) {
  const TextCatalogue catalogue("QuillanePluginItemData", {{"%s egyéb tételadatai", "Other data of %s"},
                                                           {"&OK", "&Done"},
                                                           {"&Új sor\tIns", "&New row\tIns"},
                                                           {"&Törlés\tDel", "&Delete\tDel"},
                                                           {"Rendelés", "Order"},
                                                           {"Mennyiség", "Quantity"},
                                                           {"Gyári szám", "Serial number"}});
  open(store({11}, {}));
  EXPECT_EQ(fieldLabels(), (Lines{"Rendelés:"}));
  open(store({13}, {}));
  EXPECT_EQ(dialog->getTitle(), "Other data of Fúrógép");
  EXPECT_EQ(widgetsIn<FXButton>(*dialog->getFirst()->getLast()).at(0)->getText(), "Done");
  EXPECT_EQ(headers(), (Lines{"Mennyiség", "Gyári szám"}));
  Lines commands;
  for (const FXMenuCommand* entry : widgetsIn<FXMenuCommand>(*table()->getMenu()))
    commands.push_back(text(entry->getText()));
  EXPECT_EQ(commands, (Lines{"New row", "Delete"}));
}

TEST_F(ItemDataDialogTest, saysHowRowsAreAddedWhereTheyCanBe) {
  const auto says = [&] {
    for (const FXLabel* label : widgetsIn<FXLabel>(*dialog)) {
      if (label->getText() == "Új sor: Ins, törlés: Del") return true;
    }
    return false;
  };
  open(store({13}, {}));
  EXPECT_TRUE(says());
  open(store({11}, {}));
  EXPECT_FALSE(says());
  invoice.setStatus(151, true);
  open(store({13}, {}));
  EXPECT_FALSE(says());
}

TEST_F(ItemDataDialogTest, hasNoTableWhenAllVariablesArePerItem) {
  open(store({11, 12, 15}, {"0 11 'R-1' #1", "0 12 '2024.05.06' #2", "0 15 'kék' #3"}));
  EXPECT_EQ(dialog->getTable(), nullptr);
  EXPECT_EQ(fieldLabels(), (Lines{"Rendelés:", "Átvéve:", "Szín:"}));
  EXPECT_EQ(widgetsIn<FXExt::FXDateInput>(*dialog).size(), 1u);
  EXPECT_EQ(widgetsIn<FXExt::FXComboBox>(*dialog).size(), 1u);
  EXPECT_LE(dialog->getHeight(), 1) << "the height that it needs is found when it is created";
}

TEST_F(ItemDataDialogTest, hasTableAndNoFieldsWhenAllVariablesArePerUnit) {
  open(store({13, 14}, {"1 -1 '2'", "1 13 'A'", "1 14 'új'", "2 -1 '3'", "2 13 'B'", "2 14 ''"}));
  EXPECT_EQ(fieldLabels(), Lines{});
  ASSERT_NE(table(), nullptr);
  EXPECT_EQ(cells(), (Lines{"2|A|új", "3|B|"}));
  EXPECT_EQ(dialog->getHeight(), 400);
  EXPECT_EQ(table()->getRowHeaderWidth(), 0);
  EXPECT_EQ(table()->getTarget(), dialog.get());
  EXPECT_EQ(table()->getSelector(), 63u);
  EXPECT_EQ(optionsOf(*table()->getParent()) & FRAME_LINE, static_cast<FXuint>(FRAME_LINE));
}

TEST_F(ItemDataDialogTest, namesTheColumnsInTheOrderOfTheSettingsWithOnlyPerUnitVariables) {
  for (const Lines& rows : {Lines{}, Lines{"1 -1 '2'", "1 13 'A'", "1 14 ''", "1 16 ''"},
                            Lines{"1 -1 '2'", "1 13 'A'", "1 14 ''", "1 16 ''", "4 -1 '2'", "4 13 'A'", "4 14 ''",
                                  "4 16 ''", "5 -1 '2'", "5 13 'A'", "5 14 ''", "5 16 ''"}}) {
    open(store({13, 14, 16}, rows));
    EXPECT_EQ(headers(), (Lines{"Mennyiség", "Gyári szám", "Állapot", "Jegyzet"}));
    for (FXint column = 0; column < 4; ++column) EXPECT_EQ(table()->getColumnWidth(column), 568 / 4);
  }
}

// With per-item variables a column can carry another one's name, or none.
TEST_F(ItemDataDialogTest, keepsTheRuleOfTheHeadersWithPerItemVariables) {
  const Lines rowOne = {"0 11 ''", "1 -1 '2'", "1 13 'A'", "1 16 'x'"};
  Lines rowsOneToThree = rowOne;
  for (const char* line : {"2 -1 '1'", "2 13 'B'", "2 16 'y'", "3 -1 '1'", "3 13 'C'", "3 16 'z'"})
    rowsOneToThree.emplace_back(line);

  open(store({11, 13, 16}, {"0 11 ''"}));
  EXPECT_EQ(headers(), (Lines{"", "Mennyiség", "Gyári szám"})) << "no rows: the index in the settings";
  open(store({11, 13, 16}, rowOne));
  EXPECT_EQ(headers(), (Lines{"", "Mennyiség", "Gyári szám"})) << "one row";
  open(store({11, 13, 16}, rowsOneToThree));
  EXPECT_EQ(headers(), (Lines{"", "Mennyiség", "Gyári szám"})) << "three rows";
}

// The first cells have the indexes 2, 3 and 4: up to the number of rows the index tells the header, behind it the
// column.
TEST_F(ItemDataDialogTest, keepsNamingColumnsByTheNumberOfRows) {
  Lines entries = {"0 11 ''", "0 12 ''"};
  const Lines expected[] = {{"Rendelés", "Átvéve", "Mennyiség"}, {"", "Átvéve", "Mennyiség"}, {"", "", "Mennyiség"}};
  for (int rows = 1; rows <= 3; ++rows) {
    const std::string row = std::to_string(rows);
    for (const char* rest : {" -1 '1'", " 13 'A'", " 16 'x'"}) entries.push_back(row + rest);
    open(store({11, 12, 13, 16}, entries));
    EXPECT_EQ(headers(), expected[rows - 1]) << rows << " rows";
    EXPECT_EQ(table()->getColumnWidth(2), 189) << "a third of the width, without its fraction";
  }
}

TEST_F(ItemDataDialogTest, survivesHeadersThatAreNoColumns) {
  open(store({11, 12, 15, 13}, {}));
  EXPECT_EQ(headers(), (Lines{"", ""}));
  EXPECT_EQ(cells(), (Lines{"5|"}));
  EXPECT_EQ(fieldLabels(), (Lines{"Rendelés:", "Átvéve:", "Szín:"}));
}

TEST_F(ItemDataDialogTest, addsTheFirstRowOfAPerUnitItem) {
  ItemDataList* list = store({11, 13}, {});
  open(list);
  EXPECT_EQ(cells(), (Lines{"5|"}));
  EXPECT_EQ(lines(*list), (Lines{"0 11 ''", "1 -1 '5'", "1 13 ''"}));
  EXPECT_EQ(table()->getEntry(0, 1), list->at(2));
}

TEST_F(ItemDataDialogTest, opensAgainWithTheRowsThatItAdded) {
  ItemDataList* list = store({13}, {});
  open(list);
  table()->setItemText(0, 1, "SN-1");
  command(ItemDataTable::ID_ADD_ROW);
  open(list);
  EXPECT_EQ(cells(), (Lines{"5|SN-1", "0|"}));
}

TEST_F(ItemDataDialogTest, addsAFirstRowWhenAllWereDeleted) {
  ItemDataList* list = store({13}, {"1 -1 '' #1 marked", "1 13 '' #2 marked"});
  open(list);
  EXPECT_EQ(cells(), (Lines{"5|"}));
}

TEST_F(ItemDataDialogTest, passesOverDeletedRows) {
  ItemDataList* list = store({13}, {"1 -1 '' #1 marked", "1 13 '' #2 marked", "2 -1 '2' #3", "2 13 'B' #4",
                                    "3 -1 '' #5 marked", "3 13 '' #6 marked", "4 -1 '3' #7", "4 13 'D' #8"});
  open(list);
  EXPECT_EQ(cells(), (Lines{"2|B", "3|D"}));
  EXPECT_EQ(table()->getEntry(1, 0), list->at(6));
}

TEST_F(ItemDataDialogTest, completesWhatIsStoredBeforeItShowsIt) {
  ItemDataList* list = store({15, 11, 13, 14}, {"0 11 'R' #1", "1 13 'A' #2", "1 14 'új' #3", "2 -1 '2' #4"});
  open(list);
  EXPECT_EQ(fieldLabels(), (Lines{"Szín:", "Rendelés:"}));
  EXPECT_EQ(cells(), (Lines{"0|A|új", "2||"}));
  EXPECT_EQ(list->firstUnitIndex, 2);
}

TEST_F(ItemDataDialogTest, showsNoCellOfAVariableThatTheSettingsDoNotKnow) {
  ItemDataList* list = store({11, 13}, {"0 77 'x' #1", "0 11 'R' #2", "1 78 'y' #3", "1 -1 '1' #4", "1 13 'A' #5",
                                        "1 13 'twice' #6", "2 79 'z' #7", "3 13 'C' #8"});
  open(list);
  EXPECT_EQ(fieldLabels(), (Lines{"Rendelés:"}));
  EXPECT_EQ(cells(), (Lines{"1|A", "0|", "0|C"}));
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cells().back(), "4|") << "a row of all the settings' fields";
}

TEST_F(ItemDataDialogTest, hasNoTableWithoutSettings) {
  InvoiceItem* item = newItem(10);
  ItemDataList* list = attach(item);
  fill(*list, {"0 11 'R'", "1 -1 '1'"});
  list->firstUnitIndex = 1;
  open(item);
  EXPECT_EQ(dialog->getTable(), nullptr);
  EXPECT_EQ(fieldLabels(), (Lines{"Rendelés:"}));
}

TEST_F(ItemDataDialogTest, hasNeitherFieldsNorTableWithoutVariables) {
  ItemDataList* list = store({}, {"0 11 'R' #1", "1 -1 '1' #2"});
  open(list);
  EXPECT_EQ(dialog->getTable(), nullptr);
  EXPECT_EQ(lines(*list), (Lines{"0 11 'R' #1", "1 -1 '1' #2"}));
}

TEST_F(ItemDataDialogTest, showsTheUsersNamesAsTheyAre) {
  declare({{21, "R&D\tszám"}, {22, "A&B", ItemDataEntry::TYPE_TEXT, 1}});
  open(store({21, 22}, {}));
  EXPECT_EQ(fieldLabels(), (Lines{"R&D szám:"}));
  table()->setCurrentItem(0, 1);
  EXPECT_EQ(cellLabel(), "A&B, 1. sor *");
}

TEST_F(ItemDataDialogTest, writesFromTheFieldsIntoTheEntries) {
  ItemDataList* list = store({11}, {"0 11 'R-1' #1"});
  open(list);
  FXTextField* field = widgetsIn<FXTextField>(*dialog).at(0);
  refresh(*field);
  EXPECT_EQ(field->getText(), "R-1");
  field->setText("R-2", TRUE);
  EXPECT_EQ(lines(*list), (Lines{"0 11 'R-2' #1"}));
}

TEST_F(ItemDataDialogTest, writesFromTheCellsIntoTheEntries) {
  ItemDataList* list = store({13, 14}, {"1 -1 '2' #1", "1 13 'A' #2", "1 14 'új' #3"});
  open(list);
  table()->setItemText(0, 1, "őű");
  table()->setItemText(0, 2, " használt");
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '2' #1", "1 13 'őű' #2", "1 14 ' használt' #3"}));
}

// ---- rows

TEST_F(ItemDataDialogTest, proposesTheQuantityThatTheOtherRowsDoNotCover) {
  ItemDataList* list = store({13}, {"1 -1 '2'", "1 13 'A'", "2 -1 '1'", "2 13 'B'"});
  open(list);
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cells(), (Lines{"2|A", "1|B", "2|"}));
  EXPECT_EQ(lines(*list).at(4), "3 -1 '2'");
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cells().back(), "0|");
}

TEST_F(ItemDataDialogTest, proposesFractions) {
  ItemDataList* list = store({13}, {"1 -1 '2.75'", "1 13 'A'"});
  open(list);
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cells().back(), "2.25|");
}

TEST_F(ItemDataDialogTest, fillsAllRowsThatWereAppendedAtOnce) {
  ItemDataList* list = store({13}, {"1 -1 '2'", "1 13 'A'"});
  open(list);
  table()->insertRows(1, 3);
  dialog->handle(table(), FXSEL(SEL_COMMAND, ItemDataTable::ID_ADD_ROW), table());
  EXPECT_EQ(cells(), (Lines{"2|A", "3|", "0|", "0|"}));
  EXPECT_EQ(lines(*list),
            (Lines{"1 -1 '2'", "1 13 'A'", "2 -1 '3'", "2 13 ''", "3 -1 '0'", "3 13 ''", "4 -1 '0'", "4 13 ''"}));
  EXPECT_EQ(table()->getEntry(3, 1), list->at(7));
}

TEST_F(ItemDataDialogTest, leavesAQuantityAloneThatComesWithTheRow) {
  ItemDataList* list = store({13}, {"1 -1 '2'", "1 13 'A'"});
  list->settings->at(0)->value = "7";
  open(list);
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cells().back(), "7|");
}

TEST_F(ItemDataDialogTest, goesToTheRowThatWasAdded) {
  open(store({13}, {"1 -1 '2'", "1 13 'A'"}));
  table()->setCurrentItem(0, 1);
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(table()->getCurrentRow(), 1);
  EXPECT_EQ(table()->getCurrentColumn(), 1);
}

TEST_F(ItemDataDialogTest, answersEveryMessageOfItsMap) {
  open(store({13}, {"1 -1 '2' #1", "1 13 'A' #2"}));
  EXPECT_EQ(dialog->handle(table(), FXSEL(SEL_COMMAND, 88), table()), 1);
  EXPECT_EQ(dialog->handle(table(), FXSEL(SEL_COMMAND, 89), reinterpret_cast<void*>(FXival(0))), 1);
  FXTableRange range{{0, 0}, {0, 1}};
  EXPECT_EQ(dialog->handle(table(), FXSEL(SEL_REPLACED, 63), &range), 1);
  EXPECT_EQ(table()->handle(nullptr, FXSEL(SEL_COMMAND, 88), nullptr), 1);
  EXPECT_EQ(table()->handle(nullptr, FXSEL(SEL_COMMAND, 89), nullptr), 1);

  open(newItem(3));
  EXPECT_EQ(dialog->handle(nullptr, FXSEL(SEL_COMMAND, 88), nullptr), 1);
  EXPECT_EQ(dialog->handle(nullptr, FXSEL(SEL_COMMAND, 89), nullptr), 1);
  EXPECT_EQ(dialog->handle(nullptr, FXSEL(SEL_REPLACED, 63), &range), 1);
  EXPECT_EQ(dialog->handle(nullptr, FXSEL(SEL_REPLACED, 63), nullptr), 1);
}

TEST_F(ItemDataDialogTest, passesOverAnIndexThatIsNoRow) {
  ItemDataList* list = store({13}, {"1 -1 '2' #1", "1 13 'A' #2"});
  open(list);
  for (const FXival row : {-1, 1, 2, 1000})
    EXPECT_EQ(dialog->handle(table(), FXSEL(SEL_COMMAND, 89), reinterpret_cast<void*>(row)), 1);
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '2' #1", "1 13 'A' #2"}));
}

TEST_F(ItemDataDialogTest, deletesTheCurrentRowWhenNothingIsSelected) {
  ItemDataList* list =
      store({13}, {"1 -1 '1' #1", "1 13 'A' #2", "2 -1 '1'", "2 13 'B'", "3 -1 '1' #5", "3 13 'C' #6"});
  open(list);
  table()->setCurrentItem(1, 1);
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cells(), (Lines{"1|A", "1|C"}));
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1' #1", "1 13 'A' #2", "3 -1 '1' #5", "3 13 'C' #6"}));
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cells(), (Lines{"1|A"}));
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1' #1", "1 13 'A' #2", "3 -1 '' #5 marked", "3 13 '' #6 marked"}));
  command(ItemDataTable::ID_DELETE_ROW);
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cells(), Lines{});
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cells(), (Lines{"5|"}));
}

// Of rows that are deleted together every one but the first is taken for the one before it.
TEST_F(ItemDataDialogTest, keepsDeletingSelectedRowsFromTheFirstOneDown) {
  ItemDataList* list = store({13}, {});
  for (const char* name : {"A", "B", "C", "D", "E"}) {
    list->addRows(1);
    list->at(list->no() - 2)->value = "1";
    list->at(list->no() - 1)->value = name;
  }
  open(list);
  table()->setCurrentItem(1, 0);
  table()->selectRange(1, 2, 0, 1);
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cells(), (Lines{"1|A", "1|C", "1|E"})) << "rows 1 and 2 were meant: B, and D behind C";
  EXPECT_EQ(lines(*list), (Lines{"1 -1 '1'", "1 13 'A'", "3 -1 '1'", "3 13 'C'", "5 -1 '1'", "5 13 'E'"}));
}

TEST_F(ItemDataDialogTest, passesOverSelectedRowsThatAreNoLongerThere) {
  ItemDataList* list = store({13}, {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'B'", "3 -1 '1'", "3 13 'C'"});
  open(list);
  table()->setCurrentItem(0, 0);
  table()->selectRange(0, 2, 0, 1);
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cells(), (Lines{"1|B"})) << "A, then C, then a third row that there is not";
  EXPECT_EQ(lines(*list), (Lines{"2 -1 '1'", "2 13 'B'"}));
}

TEST_F(ItemDataDialogTest, deletesNothingWhenThereIsNoCurrentRow) {
  open(store({13}, {"1 -1 '1'", "1 13 'A'"}));
  table()->setCurrentItem(-1, -1);
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cells(), (Lines{"1|A"}));
}

// ---- quantities

/// An entry that writes down which quantities it is told.
class QuantityEntry : public ItemDataStringEntry {
 public:
  using ItemDataStringEntry::ItemDataStringEntry;
  void onQuantityChanged(const FXString& quantity) override { told.push_back(text(quantity)); }
  Lines told;
};

class ItemDataDialogQuantity : public DialogTest {
 protected:
  ItemDataDialogQuantity() {
    list = store({13, 16}, {"1 -1 '2'"});
    for (const int variable : {13, 16}) {
      auto* entry = new QuantityEntry(list->getOwner());
      entry->itemvariable = variable;
      entry->row = 1;
      list->append(entry);
      entries.push_back(entry);
    }
    open(list);
  }

  void replace(FXint fromRow, FXint fromColumn, FXint toRow, FXint toColumn) {
    FXTableRange range{{fromRow, fromColumn}, {toRow, toColumn}};
    dialog->handle(table(), FXSEL(SEL_REPLACED, ItemDataDialog::ID_TABLE), &range);
  }

  std::vector<QuantityEntry*> entries;
  ItemDataList* list;
};

TEST_F(ItemDataDialogQuantity, tellsEveryOtherCellOfTheRowOnce) {
  table()->setItemText(0, 0, "4", TRUE);
  replace(0, 0, 0, 0);
  for (const QuantityEntry* entry : entries) EXPECT_EQ(entry->told.back(), "4");
  const std::size_t before = entries[0]->told.size();
  replace(0, 0, 0, 2);
  EXPECT_EQ(entries[0]->told.size(), before + 1);
  EXPECT_EQ(entries[1]->told.size(), before + 1);
}

TEST_F(ItemDataDialogQuantity, tellsNothingOfOtherCells) {
  replace(0, 1, 0, 2);
  table()->setItemText(0, 1, "x", TRUE);
  for (const QuantityEntry* entry : entries) EXPECT_EQ(entry->told, Lines{});
}

TEST_F(ItemDataDialogQuantity, passesOverCellsThatThereAreNot) {
  replace(-1, -1, 5, 5);
  for (const QuantityEntry* entry : entries) EXPECT_EQ(entry->told, (Lines{"2"}));
}

TEST_F(ItemDataDialogQuantity, tellsWhatIsCutOnceAndWithTheNewText) {
  table()->selectRange(0, 0, 0, 2);
  table()->handle(nullptr, FXSEL(SEL_COMMAND, FXTable::ID_DELETE_SEL), nullptr);
  for (const QuantityEntry* entry : entries) EXPECT_EQ(entry->told, (Lines{""}));
}

TEST_F(ItemDataDialogQuantity, tellsTheQuantityThatComesWithAPaste) {
  table()->setCurrentItem(0, 1);
  table()->pasteText("SN\n");
  for (const QuantityEntry* entry : entries) EXPECT_EQ(entry->told, (Lines{"1"}));
}

// ---- the current cell

TEST_F(ItemDataDialogTest, namesTheCurrentCell) {
  open(store({11, 13, 14}, {"0 11 ''", "1 -1 '2'", "1 13 'A'", "1 14 ''", "4 -1 '3'", "4 13 'B'", "4 14 ''"}));
  EXPECT_EQ(cellLabel(), "Mennyiség, 1. sor *") << "where the keyboard starts";
  table()->setCurrentItem(1, 1);
  EXPECT_EQ(cellLabel(), "Gyári szám, 2. sor *");
  table()->setCurrentItem(1, 2);
  EXPECT_EQ(cellLabel(), "Állapot, 2. sor");
  command(ItemDataTable::ID_ADD_ROW);
  EXPECT_EQ(cellLabel(), "Állapot, 3. sor");
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cellLabel(), "Állapot, 2. sor");
  command(ItemDataTable::ID_DELETE_ROW);
  command(ItemDataTable::ID_DELETE_ROW);
  EXPECT_EQ(cellLabel(), "") << "no row";
}

// ---- closed documents

TEST_F(ItemDataDialogTest, onlyShowsWhatAClosedDocumentHas) {
  invoice.setStatus(151, true);
  const Lines stored = {"0 11 'R' #1", "0 12 '2024-05-06' #2", "0 15 'kék' #3", "1 -1 '2' #4", "1 13 'A' #5"};
  ItemDataList* list = store({11, 12, 15, 13}, stored);
  open(list);
  EXPECT_EQ(cells(), (Lines{"2|A"}));
  EXPECT_EQ(table()->getEntry(0, 0), list->at(3));
  EXPECT_FALSE(table()->isEditable());
  for (const FXTextField* field : widgetsIn<FXTextField>(*dialog))
    EXPECT_TRUE(!field->isEditable() || !field->isEnabled()) << field->getText().text();
  EXPECT_FALSE(widgetsIn<FXExt::FXComboBox>(*dialog).at(0)->isEnabled());
  EXPECT_FALSE(widgetsIn<FXExt::FXDateInput>(*dialog).at(0)->isEnabled());

  table()->setCurrentItem(0, 1);
  command(ItemDataTable::ID_ADD_ROW);
  command(ItemDataTable::ID_DELETE_ROW);
  dialog->handle(table(), FXSEL(SEL_COMMAND, 88), table());
  dialog->handle(table(), FXSEL(SEL_COMMAND, 89), reinterpret_cast<void*>(FXival(0)));
  table()->pasteText("x\ny\nz");
  table()->selectRange(0, 0, 0, 1);
  table()->handle(nullptr, FXSEL(SEL_COMMAND, FXTable::ID_DELETE_SEL), nullptr);
  table()->handle(nullptr, FXSEL(SEL_COMMAND, FXTable::ID_START_INPUT), nullptr);
  EXPECT_EQ(cells(), (Lines{"2|A"}));
  EXPECT_EQ(lines(*list), stored);
  for (FXMenuCommand* entry : widgetsIn<FXMenuCommand>(*table()->getMenu())) EXPECT_FALSE(entry->isEnabled());
}

TEST_F(ItemDataDialogTest, completesNothingOfAClosedDocumentAndStillShowsEveryField) {
  invoice.setStatus(151, true);
  const Lines stored = {"0 77 'x' #9", "0 11 'R' #1", "1 13 'A' #5", "2 -1 '3' #6"};
  ItemDataList* list = store({15, 11, 13}, stored);
  const int firstUnitIndex = list->firstUnitIndex;
  open(list);
  EXPECT_EQ(fieldLabels(), (Lines{"Szín:", "Rendelés:"}));
  EXPECT_EQ(cells(), (Lines{"0|A", "3|"}));
  EXPECT_EQ(lines(*list), stored);
  EXPECT_EQ(list->firstUnitIndex, firstUnitIndex);
  dialog.reset();
  EXPECT_EQ(lines(*list), stored);
}

TEST_F(ItemDataDialogTest, addsNoFirstRowToAClosedDocument) {
  invoice.setStatus(151, true);
  ItemDataList* list = store({13}, {});
  open(list);
  EXPECT_EQ(cells(), Lines{});
  EXPECT_EQ(lines(*list), Lines{});
}

// ---- the end

TEST_F(ItemDataDialogTest, leavesNoPopUpBehind) {
  const FXint before = testAccount().getRootWindow()->numChildren();
  open(store({12, 13}, {}));
  EXPECT_GT(testAccount().getRootWindow()->numChildren(), before + 1);
  dialog.reset();
  EXPECT_EQ(testAccount().getRootWindow()->numChildren(), before);
}

TEST_F(ItemDataDialogTest, hasAMenuWithTheKeysOfItsCommands) {
  open(store({13}, {}));
  const auto entries = widgetsIn<FXMenuCommand>(*table()->getMenu());
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0]->getText(), "Új sor");
  EXPECT_EQ(entries[0]->getAccelText(), "Ins");
  EXPECT_EQ(entries[0]->getSelector(), 88u);
  EXPECT_EQ(entries[1]->getText(), "Törlés");
  EXPECT_EQ(entries[1]->getAccelText(), "Del");
  EXPECT_EQ(entries[1]->getSelector(), 89u);
  EXPECT_EQ(table()->getMenu()->getOwner(), dialog.get());
  EXPECT_EQ(entries[0]->getIcon(), testAccount().getAddIcon());
  EXPECT_EQ(entries[1]->getIcon(), testAccount().getDeleteIcon());
  for (const FXMenuCommand* entry : entries) {
    EXPECT_EQ(entry->getTarget(), table());
    EXPECT_NE(entry->getIcon(), nullptr);
  }
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
