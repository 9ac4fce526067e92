// The list of records without a display: what it shows, in which order, and what it tells.
#include "host/desktop/RecordList.h"

#include <fxkeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/desktop/FilterField.h"
#include "tests/support/RecordingTarget.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::pressKey;

namespace Quillane::Desktop {
namespace {

constexpr FXSelector kMessage = 7;

std::string describeId(const void* data) { return std::to_string(reinterpret_cast<FXival>(data)); }

class RecordListTest : public testing::Test {
 protected:
  RecordListTest() : window(&testAccount(), "test") {
    list = new RecordList(&window, &target, kMessage);
    list->addColumn("Név", 100);
    list->addColumn("Ár", 80, RecordList::RIGHT);
    field = new FilterField(&window, list);
  }

  static std::vector<RecordList::Row> makeRows() {
    return {{1, {"Zöld", "1 000"}, {"Zöld", "1000"}},
            {2, {"alma", "9"}, {"alma", "9"}},
            {3, {"Őrségi", "–"}, {"Őrségi", ""}},
            {4, {"opál", "-5,5"}, {"opál", "-5.5"}}};
  }

  void fill() {
    list->setRows(makeRows());
    target.take();
  }

  void type(const char* text) {
    field->setText(text);
    list->handle(field, FXSEL(SEL_CHANGED, RecordList::ID_FILTER), const_cast<char*>(text));
  }

  void clickHeader(int column) {
    FXHeader* header = list->getList()->getHeader();
    list->handle(header, FXSEL(SEL_COMMAND, RecordList::ID_HEADER), reinterpret_cast<void*>(FXival(column)));
  }

  FXMainWindow window;
  TestSupport::RecordingTarget target{describeId};
  RecordList* list = nullptr;    // owned by the window
  FilterField* field = nullptr;  // owned by the window
};

TEST_F(RecordListTest, isSortedByTheAlphabetAtFirst) {
  fill();
  EXPECT_THAT(list->getShownIds(), ElementsAre(2, 4, 3, 1));
}

TEST_F(RecordListTest, isSortedByAClickAndTheOtherWayRoundByAnother) {
  fill();
  clickHeader(1);
  EXPECT_THAT(list->getShownIds(), ElementsAre(3, 4, 2, 1)) << "by size, what is no number first";
  clickHeader(1);
  EXPECT_THAT(list->getShownIds(), ElementsAre(1, 2, 4, 3));
  EXPECT_TRUE(list->isDescending());
  clickHeader(0);
  EXPECT_THAT(list->getShownIds(), ElementsAre(2, 4, 3, 1));
}

TEST_F(RecordListTest, showsTheOrderInItsHeader) {
  FXHeader* header = list->getList()->getHeader();
  EXPECT_EQ(header->getArrowDir(0), TRUE);
  EXPECT_EQ(header->getArrowDir(1), MAYBE);
  list->sortBy(1, true);
  EXPECT_EQ(header->getArrowDir(0), MAYBE);
  EXPECT_EQ(header->getArrowDir(1), FALSE);
}

TEST_F(RecordListTest, isSortedByKeys) {
  fill();
  pressKey(*list->getList(), KEY_2, "2", CONTROLMASK);
  EXPECT_EQ(list->getSortColumn(), 1);
  EXPECT_FALSE(list->isDescending());
  pressKey(*list->getList(), KEY_2, "2", CONTROLMASK);
  EXPECT_TRUE(list->isDescending());
  pressKey(*list->getList(), KEY_9, "9", CONTROLMASK);
  EXPECT_EQ(list->getSortColumn(), 1) << "there is no such column";
}

TEST_F(RecordListTest, keepsEqualRowsInTheOrderInWhichTheyWereSet) {
  list->setRows({{7, {"a", "1"}, {}}, {5, {"a", "1"}, {}}, {6, {"a", "1"}, {}}});
  EXPECT_THAT(list->getShownIds(), ElementsAre(7, 5, 6));
  list->sortBy(0, true);
  EXPECT_THAT(list->getShownIds(), ElementsAre(7, 5, 6));
}

TEST_F(RecordListTest, isFilteredInCapitalAndSmallLetters) {
  fill();
  type("őRS");
  EXPECT_THAT(list->getShownIds(), ElementsAre(3));
  type("  1 000 ");
  EXPECT_THAT(list->getShownIds(), ElementsAre(1));
  type("%");
  EXPECT_THAT(list->getShownIds(), IsEmpty());
  EXPECT_EQ(list->getCurrentId(), 0);
  type("");
  EXPECT_EQ(list->getNumShown(), 4);
}

TEST_F(RecordListTest, isFoundByNumbersWithNoBreakBlanks) {
  list->setRows({{1,
                  {"a",
                   "1\xC2\xA0"
                   "234,5"},
                  {"a", "1234.5"}}});
  type("1 234");
  EXPECT_EQ(list->getNumShown(), 1);
  type(
      "1\xC2\xA0"
      "234");
  EXPECT_EQ(list->getNumShown(), 1);
}

TEST_F(RecordListTest, isNotFilteredAcrossColumns) {
  list->setRows({{1, {"ab", "cd"}, {}}});
  type("bc");
  EXPECT_EQ(list->getNumShown(), 0);
}

TEST_F(RecordListTest, showsTheGivenIdsThatTheFilterLetsThrough) {
  fill();
  list->setVisibleIds({1, 2, 99});
  EXPECT_THAT(list->getShownIds(), ElementsAre(2, 1));
  type("z");
  EXPECT_THAT(list->getShownIds(), ElementsAre(1));
  list->setRows(makeRows());
  EXPECT_THAT(list->getShownIds(), ElementsAre(1));
  list->showAll();
  EXPECT_EQ(list->getNumShown(), 4);
  list->setVisibleIds({});
  EXPECT_EQ(list->getNumShown(), 0);
  EXPECT_EQ(list->getNumRows(), 4);
}

TEST_F(RecordListTest, keepsSelectionAndOrderOverNewRows) {
  fill();
  list->allowSeveral();
  list->sortBy(1);
  list->setCurrentId(2);
  list->getList()->selectItem(3);  // record 1
  std::vector<RecordList::Row> rows = makeRows();
  rows[1].texts[0] = "zab";
  rows.erase(rows.begin() + 3);
  list->setRows(std::move(rows));
  EXPECT_THAT(list->getShownIds(), ElementsAre(3, 2, 1));
  EXPECT_EQ(list->getCurrentId(), 2);
  EXPECT_THAT(list->getSelectedIds(), ElementsAre(2, 1));
}

TEST_F(RecordListTest, takesTheFirstRowWhenTheCurrentOneIsGone) {
  fill();
  list->setCurrentId(1);
  list->setVisibleIds({3, 4});
  EXPECT_EQ(list->getCurrentId(), 4);
  EXPECT_THAT(list->getSelectedIds(), ElementsAre(4));
}

TEST_F(RecordListTest, selectsSeveralOnlyWhenItMay) {
  fill();
  list->selectAll();
  EXPECT_EQ(list->getSelectedIds().size(), 1u);
  list->allowSeveral();
  list->selectAll();
  EXPECT_THAT(list->getSelectedIds(), ElementsAre(2, 4, 3, 1));
}

TEST_F(RecordListTest, tellsOfAnotherCurrentRecordOnce) {
  list->setRows(makeRows());
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 2"));
  list->setRows(makeRows());
  EXPECT_THAT(target.take(), IsEmpty());
  EXPECT_TRUE(list->setCurrentId(3));
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 3"));
  EXPECT_FALSE(list->setCurrentId(99));
  list->setRows({});
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 0"));
}

TEST_F(RecordListTest, tellsThatARecordWasPicked) {
  fill();
  pressKey(*list->getList(), KEY_Return);
  EXPECT_THAT(target.take(), ElementsAre("COMMAND 7 2"));
  list->getList()->handle(nullptr, FXSEL(SEL_DOUBLECLICKED, 0), reinterpret_cast<void*>(FXival(0)));
  EXPECT_THAT(target.take(), ElementsAre("COMMAND 7 2"));
  list->setRows({});
  target.take();
  pressKey(*list->getList(), KEY_Return);
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(RecordListTest, isWalkedThroughByKeys) {
  fill();
  pressKey(*list->getList(), KEY_Down);
  EXPECT_EQ(list->getCurrentId(), 4);
  EXPECT_THAT(target.take(), ElementsAre("CHANGED 7 4"));
  pressKey(*list->getList(), KEY_Page_Down);
  pressKey(*list->getList(), KEY_Page_Down);
  pressKey(*list->getList(), KEY_Page_Down);
  EXPECT_EQ(list->getCurrentId(), 1);
  pressKey(*list->getList(), KEY_Page_Up);
  EXPECT_EQ(list->getCurrentId(), 3);
}

TEST_F(RecordListTest, showsTextsOfSeveralLinesOnOne) {
  list->setRows({{1, {"a\tb\nc", "1"}, {}}});
  type("a b c");
  EXPECT_EQ(list->getNumShown(), 1);
}

TEST_F(RecordListTest, takesRowsWithFewerTextsThanColumns) {
  list->setRows({{1, {"a"}, {}}, {2, {}, {}}});
  list->sortBy(1);
  EXPECT_EQ(list->getNumShown(), 2);
}

TEST_F(RecordListTest, survivesColumnsThatThereAreNot) {
  fill();
  list->sortBy(-1);
  list->sortBy(2);
  list->setStretchColumn(5);
  list->layout();
  EXPECT_EQ(list->getSortColumn(), 0);
}

TEST_F(RecordListTest, givesOneColumnTheRoomThatTheOthersLeave) {
  fill();
  list->setStretchColumn(0);
  list->resize(500, 300);
  list->layout();
  const FXint all = list->getList()->getHeaderSize(0) + 80;
  EXPECT_GT(all, 480);
  EXPECT_LE(all, 500);
  list->resize(150, 300);
  list->layout();
  EXPECT_EQ(list->getList()->getHeaderSize(0), 100);
}

TEST_F(RecordListTest, isMovedInFromTheFilterField) {
  fill();
  pressKey(*field, KEY_Down);
  EXPECT_EQ(list->getCurrentId(), 4);
  pressKey(*field, KEY_Up);
  EXPECT_EQ(list->getCurrentId(), 2);
  target.take();
  pressKey(*field, KEY_Return);
  EXPECT_THAT(target.take(), ElementsAre("COMMAND 7 2"));
}

TEST_F(RecordListTest, isShownWholeWhenEscapeEmptiesTheField) {
  fill();
  type("zöld");
  ASSERT_EQ(list->getNumShown(), 1);
  EXPECT_EQ(pressKey(*field, KEY_Escape), 1);
  EXPECT_EQ(list->getNumShown(), 4);
  EXPECT_EQ(field->getText(), "");
  EXPECT_EQ(pressKey(*field, KEY_Escape), 0) << "the window around it may close";
}

TEST_F(RecordListTest, isFilteredByTypedKeys) {
  fill();
  pressKey(*field, KEY_z, "z");
  EXPECT_THAT(list->getShownIds(), ElementsAre(1));
  pressKey(*field, KEY_BackSpace);
  EXPECT_EQ(list->getNumShown(), 4);
}

}  // namespace
}  // namespace Quillane::Desktop
