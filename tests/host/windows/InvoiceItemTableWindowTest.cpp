// The item table on a display: real clicks, the menu key, and what the user picks from the menu.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "plugin/contract/Forms.h"
#include "plugin/contract/Tarnwell.h"
#include "tests/fxext/WindowFixture.h"
#include "tests/host/windows/TestMenuPlugin.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::runEvents;
using TestSupport::typeKey;

namespace Quillane {
namespace {

constexpr int kLeft = 1;
constexpr int kRight = 3;

// The first and last selected row.
using Rows = std::pair<FXint, FXint>;

/// Does something each time the menu is opened, and takes it away when it is still there afterwards.
class MenuDriver : public FXObject {
 public:
  MenuDriver(FXPopup& driven, std::function<void()> whenOpen) : menu(driven), action(std::move(whenOpen)) {
    testAccount().addTimeout(this, 0, kInterval);
  }
  ~MenuDriver() override { testAccount().removeTimeout(this, 0); }

  long handle(FXObject*, FXSelector, void*) override {
    if (menu.shown() && TestSupport::isOnScreen(menu)) {
      ++opened;
      action();
      runEvents(kInterval);
      if (menu.shown()) {
        ++leftOpen;
        menu.handle(nullptr, FXSEL(SEL_COMMAND, FXWindow::ID_UNPOST), nullptr);
      }
    }
    testAccount().addTimeout(this, 0, kInterval);
    return 1;
  }

  int opened = 0;
  int leftOpen = 0;

 private:
  static constexpr FXuint kInterval = 10;  // milliseconds

  FXPopup& menu;
  std::function<void()> action;
};

class InvoiceItemTableWindow : public testing::Test {
 protected:
  void SetUp() override {
    testAccount();
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    windowsBefore = testAccount().getRootWindow()->numChildren();
    form = std::make_unique<TestSupport::TestForm>();
    table = form->table;
    below = new FXTextField(form.get(), 10, nullptr, 0, LAYOUT_SIDE_BOTTOM | LAYOUT_FILL_X);
    for (const char* name : {"Szék", "Asztal", "Lámpa", "Polc", "Ágy"}) form->addItem(name);
    new FXMenuCommand(table->getMenu(), "Szerkesztés...");
    command = table->appendPluginEntry(&plugin);
    plugin.onPicked = [this] { pickedOver.emplace_back(table->getSelStartRow(), table->getSelEndRow()); };
    form->create();
    form->show();
    ASSERT_SOON(TestSupport::isOnScreen(*table));
    table->setFocus();
    ASSERT_SOON(testAccount().getActiveWindow() == form.get());
  }

  void TearDown() override {
    form.reset();
    if (!testAccount().isInitialized()) return;
    runEvents(20);
    EXPECT_EQ(testAccount().getRootWindow()->numChildren(), windowsBefore) << "the menu was left behind";
    EXPECT_EQ(testAccount().getPopupWindow(), nullptr);
  }

  void clickCell(int button, FXint row, FXint column) {
    TestSupport::click(*table, button, table->getColumnX(column) + table->getColumnWidth(column) / 2,
                       table->getRowY(row) + table->getRowHeight(row) / 2);
  }

  void clickBesideTheCells(int button, FXint row) {
    const FXint last = table->getNumColumns() - 1;
    TestSupport::click(*table, button, table->getColumnX(last) + table->getColumnWidth(last) + 20,
                       table->getRowY(row) + table->getRowHeight(row) / 2);
  }

  void select(FXint first, FXint last) {
    table->selectOnly(first);
    table->selectRange(first, last, 0, 0);
  }

  Rows selectedRows() const { return {table->getSelStartRow(), table->getSelEndRow()}; }

  /// What a driver does to look at the menu only.
  void closeMenu() { table->getMenu()->handle(nullptr, FXSEL(SEL_COMMAND, FXWindow::ID_UNPOST), nullptr); }

  TestMenuPlugin plugin;
  std::vector<Rows> pickedOver;  // the selection at each time that the plug-in's entry was picked
  std::unique_ptr<TestSupport::TestForm> form;
  InvoiceItemTable* table = nullptr;  // these are owned by the form
  FXTextField* below = nullptr;
  FXMenuCommand* command = nullptr;

 private:
  FXint windowsBefore = 0;
};

TEST_F(InvoiceItemTableWindow, selectsTheRowOfAnyCellThatIsClicked) {
  for (FXint column = 0; column < table->getNumColumns(); ++column) {
    const FXint row = column + 1;
    clickCell(kLeft, row, column);
    EXPECT_SOON(table->getCurrentRow() == row);
    EXPECT_EQ(selectedRows(), Rows(row, row));
    EXPECT_TRUE(table->isRowSelected(row));
  }
}

TEST_F(InvoiceItemTableWindow, selectsRowsUpToTheOneThatIsClickedWithShift) {
  clickCell(kLeft, 1, 1);
  EXPECT_SOON(table->getCurrentRow() == 1);
  TestSupport::holdKey("Shift_L", true);
  clickCell(kLeft, 3, 0);
  TestSupport::holdKey("Shift_L", false);
  EXPECT_SOON(selectedRows() == Rows(1, 3));
  EXPECT_TRUE(table->isRowSelected(2));
}

TEST_F(InvoiceItemTableWindow, opensItsMenuAtThePointer) {
  bool underPointer = false;
  MenuDriver driver(*table->getMenu(), [&] {
    const FXMenuPane& menu = *table->getMenu();
    FXint x = 0;
    FXint y = 0;
    FXuint buttons = 0;
    testAccount().getRootWindow()->getCursorPosition(x, y, buttons);
    underPointer = menu.getX() == x && menu.getY() == y;
    closeMenu();
  });
  clickCell(kRight, 2, 1);
  EXPECT_SOON(driver.opened == 1);
  EXPECT_TRUE(underPointer);
}

TEST_F(InvoiceItemTableWindow, opensItsMenuAfterTheButtonIsReleased) {
  MenuDriver driver(*table->getMenu(), [&] { closeMenu(); });
  FXEvent event{};
  event.win_x = table->getColumnX(1) + 5;
  event.win_y = table->getRowY(1) + 5;
  table->handle(&testAccount(), FXSEL(SEL_RIGHTBUTTONPRESS, 0), &event);
  runEvents(50);
  EXPECT_EQ(driver.opened, 0);
  table->handle(&testAccount(), FXSEL(SEL_RIGHTBUTTONRELEASE, 0), &event);
  EXPECT_EQ(driver.opened, 1);
}

TEST_F(InvoiceItemTableWindow, opensNoMenuAfterScrollingWithTheRightButton) {
  MenuDriver driver(*table->getMenu(), [&] { closeMenu(); });
  FXEvent event{};
  event.win_x = table->getColumnX(1) + 5;
  event.win_y = table->getRowY(1) + 5;
  table->handle(&testAccount(), FXSEL(SEL_RIGHTBUTTONPRESS, 0), &event);
  event.moved = TRUE;
  table->handle(&testAccount(), FXSEL(SEL_RIGHTBUTTONRELEASE, 0), &event);
  runEvents(50);
  EXPECT_EQ(driver.opened, 0);
  EXPECT_FALSE(table->grabbed());
}

TEST_F(InvoiceItemTableWindow, makesTheRowUnderARightClickTheOnlySelectedOne) {
  select(0, 1);
  Rows whileOpen;
  MenuDriver driver(*table->getMenu(), [&] {
    whileOpen = selectedRows();
    closeMenu();
  });
  clickCell(kRight, 3, 2);
  EXPECT_SOON(driver.opened == 1);
  EXPECT_EQ(whileOpen, Rows(3, 3));
  EXPECT_EQ(table->getCurrentRow(), 3);
}

TEST_F(InvoiceItemTableWindow, keepsSeveralSelectedRowsAtARightClickOnOneOfThem) {
  select(1, 3);
  Rows whileOpen;
  MenuDriver driver(*table->getMenu(), [&] {
    whileOpen = selectedRows();
    closeMenu();
  });
  clickCell(kRight, 2, 0);
  EXPECT_SOON(driver.opened == 1);
  EXPECT_EQ(whileOpen, Rows(1, 3));
  EXPECT_EQ(table->getCurrentRow(), 1);
}

TEST_F(InvoiceItemTableWindow, takesTheRowBesideItsCellsForTheRow) {
  MenuDriver driver(*table->getMenu(), [&] { closeMenu(); });
  clickBesideTheCells(kRight, 4);
  EXPECT_SOON(driver.opened == 1);
  EXPECT_EQ(selectedRows(), Rows(4, 4));
}

TEST_F(InvoiceItemTableWindow, keepsItsSelectionAtARightClickBelowTheRows) {
  select(1, 2);
  MenuDriver driver(*table->getMenu(), [&] { closeMenu(); });
  TestSupport::click(*table, kRight, table->getColumnX(0) + 10, table->getRowY(4) + table->getRowHeight(4) + 20);
  EXPECT_SOON(driver.opened == 1);
  EXPECT_EQ(selectedRows(), Rows(1, 2));
}

TEST_F(InvoiceItemTableWindow, runsTheEntryThatIsClickedOverTheSelectedRows) {
  select(1, 3);
  MenuDriver driver(*table->getMenu(), [&] { TestSupport::click(*command); });
  clickCell(kRight, 2, 1);
  EXPECT_SOON(!pickedOver.empty());
  EXPECT_THAT(pickedOver, ElementsAre(Rows(1, 3)));
  EXPECT_THAT(plugin.senders, ElementsAre(command));
  EXPECT_EQ(driver.leftOpen, 0);
}

TEST_F(InvoiceItemTableWindow, losesNoClickAfterTheMenu) {
  MenuDriver driver(*table->getMenu(), [&] { TestSupport::click(*command); });
  clickCell(kRight, 2, 1);
  EXPECT_SOON(!pickedOver.empty());
  clickCell(kLeft, 4, 0);
  EXPECT_SOON(table->getCurrentRow() == 4);
  EXPECT_FALSE(table->grabbed());
  clickCell(kRight, 0, 0);
  EXPECT_SOON(pickedOver.size() == 2);
  EXPECT_EQ(pickedOver.back(), Rows(0, 0));
}

TEST_F(InvoiceItemTableWindow, greysAnEntryThatCannotBePickedNow) {
  plugin.enabled = false;
  bool enabled = true;
  MenuDriver driver(*table->getMenu(), [&] {
    testAccount().refresh();
    runEvents(50);
    enabled = command->isEnabled();
    TestSupport::click(*command);
    closeMenu();
  });
  clickCell(kRight, 2, 1);
  EXPECT_SOON(driver.opened == 1);
  EXPECT_FALSE(enabled);
  EXPECT_THAT(pickedOver, IsEmpty());
}

/// The keys that open the menu, and the modifier that is held with each.
class InvoiceItemTableMenuKey : public InvoiceItemTableWindow,
                                public testing::WithParamInterface<std::pair<std::string, std::string>> {
 protected:
  void pressMenuKey() const { typeKey(GetParam().first, GetParam().second); }
};

TEST_P(InvoiceItemTableMenuKey, opensTheMenuAtTheCurrentCell) {
  table->selectOnly(3);
  bool atCell = false;
  MenuDriver driver(*table->getMenu(), [&] {
    FXint x = 0;
    FXint y = 0;
    table->translateCoordinatesTo(x, y, table->getRoot(), table->getColumnX(0), table->getRowY(3));
    const FXint menuTop = table->getMenu()->getY();
    atCell = table->getMenu()->getX() == x && y < menuTop && menuTop <= y + table->getRowHeight(3);
    closeMenu();
  });
  pressMenuKey();
  EXPECT_SOON(driver.opened == 1);
  EXPECT_TRUE(atCell);
}

TEST_P(InvoiceItemTableMenuKey, runsTheEntryThatTheArrowsChoose) {
  select(1, 3);
  MenuDriver driver(*table->getMenu(), [&] {
    typeKey("Up");
    ASSERT_SOON(command->isActive());
    typeKey("Return");
    runEvents(50);
  });
  pressMenuKey();
  EXPECT_SOON(driver.opened == 1);
  EXPECT_THAT(pickedOver, ElementsAre(Rows(1, 3)));
  EXPECT_EQ(driver.leftOpen, 0);
  EXPECT_SOON(table->hasFocus());
}

TEST_P(InvoiceItemTableMenuKey, runsNothingAfterEscape) {
  table->selectOnly(0);
  MenuDriver driver(*table->getMenu(), [&] {
    typeKey("Escape");
    runEvents(50);
  });
  pressMenuKey();
  EXPECT_SOON(driver.opened == 1);
  EXPECT_EQ(driver.leftOpen, 0);
  EXPECT_THAT(pickedOver, IsEmpty());
}

TEST_P(InvoiceItemTableMenuKey, selectsTheCurrentRowWhenItIsNotAmongTheSelectedOnes) {
  select(0, 1);
  table->setCurrentItem(4, 1);
  MenuDriver driver(*table->getMenu(), [&] { closeMenu(); });
  pressMenuKey();
  EXPECT_SOON(driver.opened == 1);
  EXPECT_EQ(selectedRows(), Rows(4, 4));
}

TEST_P(InvoiceItemTableMenuKey, opensTheMenuAlsoWhereThereIsNoRow) {
  table->setTableSize(0, 3);
  MenuDriver driver(*table->getMenu(), [&] { closeMenu(); });
  pressMenuKey();
  EXPECT_SOON(driver.opened == 1);
}

INSTANTIATE_TEST_SUITE_P(Keys, InvoiceItemTableMenuKey,
                         testing::Values(std::pair("Menu", ""), std::pair("F10", "Shift_L")),
                         [](const auto& test) { return test.param.first; });

TEST_F(InvoiceItemTableWindow, letsTabLeaveTheTable) {
  table->selectOnly(1);
  typeKey("Tab");
  EXPECT_SOON(below->hasFocus());
  EXPECT_EQ(table->getCurrentColumn(), 0);
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(table->hasFocus());
}

TEST_F(InvoiceItemTableWindow, selectsTheRowThatTheArrowsMoveTo) {
  clickCell(kLeft, 1, 1);
  EXPECT_SOON(table->getCurrentRow() == 1);
  typeKey("Down");
  EXPECT_SOON(selectedRows() == Rows(2, 2));
  typeKey("Down", "Shift_L");
  EXPECT_SOON(selectedRows() == Rows(2, 3));
}

TEST_F(InvoiceItemTableWindow, showsEntriesThatWereAddedAfterItWasCreated) {
  TestMenuPlugin late("Kései", -1);
  FXMenuCommand* lateCommand = table->appendPluginEntry(&late);
  MenuDriver driver(*table->getMenu(), [&] { TestSupport::click(*lateCommand); });
  clickCell(kRight, 0, 0);
  EXPECT_SOON(!late.senders.empty());
  EXPECT_THAT(pickedOver, IsEmpty());
}

}  // namespace
}  // namespace Quillane
