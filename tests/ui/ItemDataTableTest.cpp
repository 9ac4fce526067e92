// The table of unit rows without a display: pasting, clearing and its messages.
#include "ui/ItemDataTable.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "tests/support/RecordingTarget.h"
#include "tests/ui/DialogFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

using UI::ItemDataTable;

/// A table of the columns quantity, "Gyári szám", "Állapot" (új, használt, hibás) and "Jegyzet".
class ItemDataTableTest : public DialogTest {
 protected:
  ItemDataList* openWith(const Lines& entries) {
    ItemDataList* list = store({13, 14, 16}, entries);
    open(list);
    return list;
  }

  void pasteAt(FXint row, FXint column, const char* pasted) {
    table()->killSelection();
    table()->setCurrentItem(row, column);
    table()->pasteText(pasted);
  }

  const Lines twoRows = {"1 -1 '2'", "1 13 'A'", "1 14 'új'", "1 16 'x'",
                         "2 -1 '3'", "2 13 'B'", "2 14 ''",   "2 16 'y'"};
};

TEST_F(ItemDataTableTest, pastesAColumnOfSerialNumbers) {
  ItemDataList* list = openWith({});
  pasteAt(0, 1, "SN-1\nSN-2\nSN-3\n");
  EXPECT_EQ(cells(), (Lines{"1|SN-1||", "1|SN-2||", "1|SN-3||"}));
  EXPECT_EQ(lines(*list).at(9), "3 13 'SN-3'");
  EXPECT_EQ(list->getRowNum(), 3);
  EXPECT_EQ(table()->getEntry(2, 1), list->at(9));
}

TEST_F(ItemDataTableTest, pastesFiveHundredSerialNumbersAtOnce) {
  ItemDataList* list = openWith({});
  FXString pasted;
  for (int number = 1; number <= 500; ++number) pasted += FXStringFormat("SN-%04d\r\n", number);
  const auto start = std::chrono::steady_clock::now();
  pasteAt(0, 1, pasted.text());
  const auto needed = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(table()->getNumRows(), 500);
  EXPECT_EQ(list->getRowNum(), 500);
  EXPECT_EQ(cells().back(), "1|SN-0500||");
  EXPECT_EQ(list->getSumQuantity().toString(), "500");
  EXPECT_LT(std::chrono::duration_cast<std::chrono::milliseconds>(needed).count(), 1000);
}

TEST_F(ItemDataTableTest, countsOneInEveryRowThatAPasteWithoutQuantitiesFills) {
  openWith(twoRows);
  pasteAt(1, 1, "SN-1\nSN-2");
  EXPECT_EQ(cells(), (Lines{"2|A|új|x", "1|SN-1||y", "1|SN-2||"}));
}

TEST_F(ItemDataTableTest, takesTheQuantitiesOfAPasteThatHasThem) {
  openWith({});
  pasteAt(0, 0, "2,5\tSN-1\n1\tSN-2\n");
  EXPECT_EQ(cells(), (Lines{"2,5|SN-1||", "1|SN-2||"})) << "a comma stays in its cell";
}

TEST_F(ItemDataTableTest, dropsColumnsThatThereAreNot) {
  openWith({});
  pasteAt(0, 2, "új\tjegyzet\tsok\tminden");
  EXPECT_EQ(table()->getNumColumns(), 4);
  EXPECT_EQ(cells(), (Lines{"1||új|jegyzet"}));
}

TEST_F(ItemDataTableTest, leavesAListCellAloneWhenTheTextIsNoneOfItsChoices) {
  ItemDataList* list = openWith(twoRows);
  pasteAt(0, 2, "kopott\nhibás\n");
  EXPECT_EQ(cells(), (Lines{"1|A|új|x", "1|B|hibás|y"}));
  pasteAt(0, 2, "használt");
  EXPECT_EQ(text(list->at(2)->value), " használt") << "the choice as the list has it";
  pasteAt(0, 1, "SN\t\tz");
  EXPECT_EQ(text(list->at(2)->getValue()), "") << "the blank choice";
}

TEST_F(ItemDataTableTest, fillsWhatALineHas) {
  openWith(twoRows);
  pasteAt(0, 0, "7\n8\tC\tnem\tz\n9");
  EXPECT_EQ(cells(), (Lines{"7|A|új|x", "8|C||z", "9|||"}));
}

TEST_F(ItemDataTableTest, startsAtTheFirstSelectedCell) {
  openWith(twoRows);
  table()->setCurrentItem(1, 3);
  table()->selectRange(0, 1, 1, 3);
  table()->pasteText("C\tj");
  EXPECT_EQ(cells().at(0), "1|C|új|x");
  EXPECT_TRUE(table()->isItemSelected(0, 1));
  EXPECT_FALSE(table()->isItemSelected(1, 1)) << "what was pasted is selected";
}

TEST_F(ItemDataTableTest, endsLinesAsAnySystemDoes) {
  openWith({});
  pasteAt(0, 1, "a\r\nb\rc\n\nd\r\n\r\n");
  EXPECT_EQ(cells(), (Lines{"1|a||", "1|b||", "1|c||", "1|||", "1|d||"}));
}

TEST_F(ItemDataTableTest, pastesNothingOfAnEmptyText) {
  openWith(twoRows);
  const Lines before = cells();
  for (const char* empty : {"", "\n", "\r\n\r\n"}) pasteAt(0, 1, empty);
  EXPECT_EQ(cells(), before);
}

TEST_F(ItemDataTableTest, pastesIntoATableWithoutRows) {
  openWith({});
  command(ItemDataTable::ID_DELETE_ROW);
  ASSERT_EQ(table()->getNumRows(), 0);
  table()->setCurrentItem(-1, -1);
  table()->pasteText("3\tSN");
  EXPECT_EQ(cells(), (Lines{"3|SN||"}));
}

TEST_F(ItemDataTableTest, emptiesClearedCellsAndKeepsThemBound) {
  ItemDataList* list = openWith(twoRows);
  table()->selectRange(0, 1, 0, 2);
  table()->handle(nullptr, FXSEL(SEL_COMMAND, FXTable::ID_DELETE_SEL), nullptr);
  EXPECT_EQ(cells(), (Lines{"|||x", "|||y"}));
  EXPECT_EQ(lines(*list),
            (Lines{"1 -1 ''", "1 13 ''", "1 14 ''", "1 16 'x'", "2 -1 ''", "2 13 ''", "2 14 ''", "2 16 'y'"}));
  table()->setItemText(1, 1, "again");
  EXPECT_EQ(lines(*list).at(5), "2 13 'again'");
}

TEST_F(ItemDataTableTest, emptiesCutCellsAndKeepsThemBound) {
  ItemDataList* list = openWith(twoRows);
  table()->selectRange(0, 0, 1, 2);
  table()->handle(nullptr, FXSEL(SEL_COMMAND, FXTable::ID_CUT_SEL), nullptr);
  EXPECT_EQ(cells().at(0), "2|||x");
  EXPECT_EQ(lines(*list).at(1), "1 13 ''");
}

TEST_F(ItemDataTableTest, removesACellThatIsNotBound) {
  openWith(twoRows);
  table()->setItem(0, 3, new FXTableItem("plain"));
  table()->removeItem(0, 3);
  EXPECT_EQ(table()->getItem(0, 3), nullptr);
}

TEST_F(ItemDataTableTest, knowsNoEntryOutsideItsCells) {
  openWith(twoRows);
  for (const FXint row : {-1, 0, 1, 2}) {
    for (const FXint column : {-1, 4}) EXPECT_EQ(table()->getEntry(row, column), nullptr);
  }
  EXPECT_EQ(table()->getEntry(2, 0), nullptr);
}

TEST_F(ItemDataTableTest, showsNoMenuAfterAMoveOfTheMouse) {
  openWith({});
  FXEvent event{};
  event.moved = TRUE;
  EXPECT_EQ(table()->handle(nullptr, FXSEL(SEL_RIGHTBUTTONRELEASE, 0), &event), 1);
  EXPECT_FALSE(table()->getMenu()->shown());
}

TEST_F(ItemDataTableTest, answersARightReleaseWithoutAMenu) {
  openWith({});
  table()->setMenu(nullptr);
  FXEvent event{};
  EXPECT_EQ(table()->handle(nullptr, FXSEL(SEL_RIGHTBUTTONRELEASE, 0), &event), 1);
}

TEST_F(ItemDataTableTest, deletesItsMenuWhenItGetsAnotherAndWhenItGoes) {
  openWith({});
  const FXWindow& root = *testAccount().getRootWindow();
  const FXint before = root.numChildren();
  auto* bare = new ItemDataTable(window.get(), nullptr, 0, 0, 0, 0, 0, 0, 2, 2, 2, 2);
  EXPECT_EQ(bare->getMenu(), nullptr);
  bare->setMenu(new FXMenuPane(window.get()));
  EXPECT_EQ(root.numChildren(), before + 1);
  auto* second = new FXMenuPane(window.get());
  bare->setMenu(second);
  EXPECT_EQ(bare->getMenu(), second);
  EXPECT_EQ(root.numChildren(), before + 1);
  delete bare;
  EXPECT_EQ(root.numChildren(), before);
}

TEST_F(ItemDataTableTest, worksWithoutATarget) {
  auto* bare = new ItemDataTable(window.get(), nullptr, 0, 0, 0, 0, 0, 0, 2, 2, 2, 2);
  bare->setTableSize(0, 2);
  bare->handle(nullptr, FXSEL(SEL_COMMAND, 88), nullptr);
  EXPECT_EQ(bare->getNumRows(), 1);
  bare->pasteText("a\tb\nc\td\te");
  EXPECT_EQ(bare->getItemText(1, 1), "d");
  bare->setCurrentItem(0, 0);
  bare->handle(nullptr, FXSEL(SEL_COMMAND, 89), nullptr);
  EXPECT_EQ(bare->getNumRows(), 1);
}

TEST_F(ItemDataTableTest, tellsItsTargetOnceOfAllRowsThatAPasteAppends) {
  TestSupport::RecordingTarget target([](const void*) { return std::string(); });
  auto* bare = new ItemDataTable(window.get(), &target, 7, 0, 0, 0, 0, 0, 2, 2, 2, 2);
  bare->setTableSize(1, 2);
  bare->setCurrentItem(0, 0);
  bare->pasteText("a\nb\nc");
  EXPECT_EQ(bare->getNumRows(), 3);
  EXPECT_EQ(target.take(), (Lines{"COMMAND 88"}));
  bare->setCurrentItem(0, 0);
  bare->pasteText("d\ne");
  EXPECT_EQ(target.take(), Lines{}) << "no row was appended";
}

TEST_F(ItemDataTableTest, tellsItsTargetOfEachRowOnceAndOfNothingElse) {
  TestSupport::RecordingTarget target([](const void*) { return std::string(); });
  auto* bare = new ItemDataTable(window.get(), &target, 7, 0, 0, 0, 0, 0, 2, 2, 2, 2);
  bare->setTableSize(2, 2);
  bare->setCurrentItem(0, 0);
  bare->handle(nullptr, FXSEL(SEL_COMMAND, 88), nullptr);
  EXPECT_EQ(target.take(), (Lines{"COMMAND 88"}));
  EXPECT_EQ(target.lastSender, bare);
  EXPECT_EQ(target.lastData, static_cast<FXObject*>(bare));
  EXPECT_EQ(bare->getNumRows(), 3);

  bare->setCurrentItem(1, 0);
  bare->handle(nullptr, FXSEL(SEL_COMMAND, 89), nullptr);
  EXPECT_EQ(target.take(), (Lines{"COMMAND 89"}));
  EXPECT_EQ(target.lastSender, bare);
  EXPECT_EQ(target.lastData, reinterpret_cast<void*>(FXival(1)));
  EXPECT_EQ(bare->getNumRows(), 2);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
