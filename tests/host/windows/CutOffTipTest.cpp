// What of a table's texts its cells are too narrow for. Without a display a text is as wide as it has bytes.
#include "host/windows/CutOffTip.h"

#include <gtest/gtest.h>

#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace Quillane::Host {
namespace {

class CutOffTipTest : public testing::Test {
 protected:
  CutOffTipTest() : window(&TestSupport::toolkitApplication(), "window"), table(new FXTable(&window)) {
    table->setTableSize(2, 2);
    table->setMarginLeft(3);
    table->setMarginRight(2);
    table->setItemText(0, 1, "1234567890");
    table->setColumnWidth(0, 15);
    table->setColumnWidth(1, 15);
  }

  FXEvent pointAt(FXint row, FXint column) const {
    FXEvent event{};
    event.win_x = table->getColumnX(column) + 1;
    event.win_y = table->getRowY(row) + 1;
    return event;
  }

  FXMainWindow window;
  FXTable* table;  // owned by the window
};

TEST_F(CutOffTipTest, isTheTextOfACellThatIsTooNarrow) {
  EXPECT_EQ(CutOffTip::getText(*table, 0, 1), "");
  table->setColumnWidth(1, 14);
  EXPECT_EQ(CutOffTip::getText(*table, 0, 1), "1234567890");
  EXPECT_EQ(CutOffTip::getText(*table, 0, 0), "");
}

TEST_F(CutOffTipTest, isEmptyWhereNoCellIs) {
  table->setColumnWidth(1, 1);
  for (const auto& [row, column] : {std::pair{-1, 1}, std::pair{2, 1}, std::pair{0, -1}, std::pair{0, 2}})
    EXPECT_EQ(CutOffTip::getText(*table, row, column), "") << row << ", " << column;
}

TEST_F(CutOffTipTest, isAskedForAnewWhenThePointerComesToAnotherCell) {
  CutOffTip tip;
  EXPECT_EQ(tip.onMotion(*table, pointAt(0, 1)), 1);
  EXPECT_EQ(tip.onMotion(*table, pointAt(0, 1)), 0);
  EXPECT_EQ(tip.onMotion(*table, pointAt(1, 1)), 1);
  EXPECT_EQ(tip.onMotion(*table, pointAt(1, 0)), 1);
}

}  // namespace
}  // namespace Quillane::Host
