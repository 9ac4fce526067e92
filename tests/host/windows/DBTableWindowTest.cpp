// The table of records on a display: real keys, clicks and menus.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

#include "host/windows/SaveFailureDialog.h"
#include "plugin/contract/DBTable.h"
#include "tests/fxext/WindowFixture.h"
#include "tests/host/windows/DBTableFixture.h"
#include "tests/support/ModalDriver.h"

using namespace FX;
using TestSupport::runEvents;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane {
namespace {

constexpr int kLeft = 1;
constexpr int kRight = 3;

/// Does something each time that the menu is opened, and closes it when it is still there afterwards.
class MenuVisit : public FXObject {
 public:
  MenuVisit(FXPopup& visited, std::function<void()> whenOpen) : menu(visited), action(std::move(whenOpen)) {
    testAccount().addTimeout(this, 0, kInterval);
  }
  ~MenuVisit() override { testAccount().removeTimeout(this, 0); }

  long handle(FXObject*, FXSelector, void*) override {
    if (menu.shown() && TestSupport::isOnScreen(menu)) {
      ++opened;
      action();
      runEvents(kInterval);
      if (menu.shown()) menu.handle(nullptr, FXSEL(SEL_COMMAND, FXWindow::ID_UNPOST), nullptr);
    }
    testAccount().addTimeout(this, 0, kInterval);
    return 1;
  }

  int opened = 0;

 private:
  static constexpr FXuint kInterval = 10;  // milliseconds

  FXPopup& menu;
  std::function<void()> action;
};

class DBTableWindow : public WindowTest, protected PartTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    if (HasFatalFailure()) return;
    table = new DBTable(form, &owner, 103, TABLE_COL_SIZABLE | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 2, 2, 2, 2);
    owner.table = table;
    below = new FXTextField(form, 10, nullptr, 0, LAYOUT_FILL_X);
    load(*table);
    const char* const titles[] = {"Név", "Anyag", "Van raktáron", "Megjegyzés"};
    for (FXint column = 0; column < PART_COLUMN_COUNT; ++column) {
      table->setColumnText(column, titles[column]);
      table->setColumnWidth(column, 80);
    }
    show(table);
  }

  void clickCell(int button, FXint row, FXint column) const {
    TestSupport::click(*table, button, xOf(column), yOf(row));
  }

  FXint xOf(FXint column) const { return table->getColumnX(column) + table->getColumnWidth(column) / 2; }
  FXint yOf(FXint row) const { return table->getRowY(row) + table->getRowHeight(row) / 2; }

  void goTo(FXint row, FXint column) const {
    table->killSelection();
    table->setCurrentItem(row, column);
    table->setAnchorItem(row, column);
  }

  bool isEditing() const {
    for (FXWindow* child = table->getFirst(); child; child = child->getNext())
      if (dynamic_cast<FXTextField*>(child) || dynamic_cast<FXComboBox*>(child)) return true;
    return false;
  }

  /// Keeps a picture of the screen where the environment says so.
  static void screenshot(const std::string& name) {
    const char* folder = std::getenv("TEST_SCREENSHOTS");
    if (!folder || !*folder) return;
    runEvents(50);
    const std::string command = "import -window root '" + std::string(folder) + "/" + name + ".png' >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) std::fprintf(stderr, "no picture %s\n", name.c_str());
  }

  PartOwner owner;
  DBTable* table = nullptr;  // these are owned by the window
  FXTextField* below = nullptr;
};

TEST_F(DBTableWindow, togglesACheckBoxWithAClick) {
  clickCell(kLeft, 1, STOCKED);
  EXPECT_SOON(table->isChecked(1, STOCKED));
  EXPECT_EQ(table->getCurrentRow(), 1);
  EXPECT_EQ(table->getCurrentColumn(), STOCKED);
  EXPECT_TRUE(table->isChangedRow(1));
  clickCell(kLeft, 1, STOCKED);
  EXPECT_SOON(!table->isChecked(1, STOCKED));
  EXPECT_FALSE(isEditing());
}

TEST_F(DBTableWindow, togglesNothingWithAClickElsewhereOrADrag) {
  MenuVisit visit(*table->getMenu(), [] {});
  clickCell(kLeft, 1, NOTE);
  clickCell(kRight, 1, STOCKED);
  EXPECT_SOON(visit.opened == 1);
  runEvents(50);
  TestSupport::drag(*table, kLeft, xOf(STOCKED), yOf(0), xOf(STOCKED), yOf(2));
  EXPECT_SOON(table->getSelEndRow() == 2);
  TestSupport::holdKey("Shift_L", true);
  clickCell(kLeft, 1, STOCKED);
  TestSupport::holdKey("Shift_L", false);
  EXPECT_EQ(rows(*table), (Lines{"1: Csavar|vas|x|M6", "2: Anya|réz|-|", "5: Alátét|műanyag|-|"}));
}

TEST_F(DBTableWindow, togglesACheckBoxWithTheSpaceKey) {
  goTo(2, STOCKED);
  typeKey("space");
  EXPECT_SOON(table->isChecked(2, STOCKED));
  typeKey("space");
  EXPECT_SOON(!table->isChecked(2, STOCKED));
}

TEST_F(DBTableWindow, takesNoOtherKeyIntoACheckBox) {
  goTo(0, STOCKED);
  for (const char* key : {"x", "0", "F2", "Return"}) typeKey(key);
  runEvents(50);
  EXPECT_FALSE(isEditing());
  EXPECT_TRUE(table->isChecked(0, STOCKED));
  typeKey("Right");
  EXPECT_SOON(table->getCurrentColumn() == NOTE);
}

TEST_F(DBTableWindow, isFilledByTheKeyboardAlone) {
  goTo(2, NOTE);
  typeKey("Insert");
  EXPECT_SOON(table->getNumRows() == 4);
  typeText("Szeg");
  typeKey("Tab");
  EXPECT_SOON(table->getCurrentColumn() == KIND);
  // Each step in the list ends the editing with what was reached.
  for (const char* const choice : {"vas", "réz"}) {
    typeKey("F2");
    EXPECT_SOON(isEditing());
    typeKey("Down");
    EXPECT_SOON(table->getItemText(3, KIND) == choice);
    EXPECT_SOON(!isEditing());
  }
  typeKey("Tab");
  EXPECT_SOON(table->getCurrentColumn() == STOCKED);
  typeKey("space");
  typeKey("Tab");
  typeText("jo");
  typeKey("Return");
  EXPECT_SOON(table->getItemText(3, NOTE) == "jo");
  EXPECT_EQ(rows(*table)[3], "-1: Szeg|réz|x|jo");
  EXPECT_EQ(table->getValueKey(3, KIND), "2");
  screenshot("record-table");
}

TEST_F(DBTableWindow, leavesTheTableWithTabBehindItsLastCell) {
  goTo(2, NOTE);
  typeKey("Tab");
  EXPECT_SOON(below->hasFocus());
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(table->hasFocus());
}

TEST_F(DBTableWindow, deletesTheCurrentRowWithDelete) {
  goTo(1, NAME);
  typeKey("Delete");
  EXPECT_SOON(table->getNumRows() == 2);
  EXPECT_EQ(owner.asked, 1);
  EXPECT_EQ(table->getDeletedKeys(), std::vector<FXint>{2});
}

TEST_F(DBTableWindow, deletesLettersWithDeleteWhileACellIsEdited) {
  goTo(1, NAME);
  typeKey("F2");
  EXPECT_SOON(isEditing());
  typeKey("Home");
  typeKey("Delete");
  typeKey("Return");
  EXPECT_SOON(!isEditing());
  EXPECT_EQ(owner.asked, 0);
  EXPECT_EQ(table->getNumRows(), 3);
}

TEST_F(DBTableWindow, asksForTheStateOfDeletingOnceForEachMenu) {
  bool enabled = true;
  owner.allows = false;
  MenuVisit visit(*table->getMenu(), [&] {
    runEvents(200);  // idle moments
    for (FXWindow* entry = table->getMenu()->getFirst(); entry; entry = entry->getNext())
      if (auto* command = dynamic_cast<FXMenuCommand*>(entry))
        if (command->getSelector() == DBTable::ID_DELETE_ROWS) enabled = command->isEnabled();
    screenshot("record-table-menu");
  });
  clickCell(kRight, 1, KIND);
  EXPECT_SOON(visit.opened == 1);
  runEvents(100);
  EXPECT_EQ(owner.asked, 1);
  EXPECT_FALSE(enabled);
  EXPECT_EQ(table->getCurrentRow(), 1) << "the menu is about the cell that was clicked";
}

TEST_F(DBTableWindow, deletesTheClickedRowFromTheMenu) {
  MenuVisit visit(*table->getMenu(), [] {
    for (const char* key : {"Down", "Down", "Return"}) typeKey(key);
    runEvents(100);
  });
  clickCell(kRight, 1, NAME);
  EXPECT_SOON(table->getNumRows() == 2);
  EXPECT_EQ(owner.told, 1);
  EXPECT_EQ(owner.asked, 1);
  EXPECT_EQ(table->getDeletedKeys(), std::vector<FXint>{2});
}

TEST_F(DBTableWindow, addsARowFromTheMenuThatAKeyOpens) {
  MenuVisit visit(*table->getMenu(), [] {
    for (const char* key : {"Down", "Return"}) typeKey(key);
    runEvents(100);
  });
  TestSupport::movePointer(*below);  // a menu that opens under the pointer begins at the command there
  typeKey("F10", "Shift_L");
  EXPECT_SOON(table->getNumRows() == 4);
  EXPECT_EQ(visit.opened, 1);
}

TEST_F(DBTableWindow, cutsAndPastesBackByKeys) {
  goTo(0, NAME);
  table->selectRange(0, 1, NAME, STOCKED);
  typeKey("x", "Control_L");
  EXPECT_SOON(table->getItemText(0, NAME).empty());
  EXPECT_EQ(rows(*table), (Lines{"1: ||-|M6", "2: ||-|", "5: Alátét|műanyag|-|"}));
  goTo(1, NAME);
  typeKey("v", "Control_L");
  EXPECT_SOON(table->getItemText(1, NAME) == "Csavar");
  EXPECT_EQ(rows(*table), (Lines{"1: ||-|M6", "2: Csavar|vas|x|", "5: Anya|réz|-|"}));
}

TEST_F(DBTableWindow, pastesManyCellsAlsoWhileOneIsEdited) {
  FXText source(window);
  source.create();
  source.setText("Szeg\tvas\nTipli\tfa\n");
  source.selectAll();
  source.handle(nullptr, FXSEL(SEL_COMMAND, FXText::ID_COPY_SEL), nullptr);
  goTo(2, NAME);
  typeKey("F2");
  EXPECT_SOON(isEditing());
  typeKey("v", "Control_L");
  EXPECT_SOON(table->getNumRows() == 4);
  EXPECT_SOON(table->getItemText(3, NAME) == "Tipli");
  EXPECT_EQ(rows(*table)[2], "5: Szeg|vas|-|");
  EXPECT_EQ(table->getValueKey(3, KIND), "") << "no choice";
}

TEST_F(DBTableWindow, asksOnTheScreenWhetherToTryAgain) {
  table->setItemText(0, NAME, "Anya");
  window->hide();
  runEvents(50);
  int asked = 0;
  TestSupport::ModalDriver driver([&](FXDialogBox& dialog) {
    if (!TestSupport::waitUntil([&] { return TestSupport::isOnScreen(dialog); })) ADD_FAILURE() << "not shown";
    if (++asked == 1) {
      screenshot("record-table-not-saved");
      TestSupport::accept(dialog);
    } else {
      TestSupport::cancel(dialog);
    }
  });
  EXPECT_FALSE(table->saveToDB(&persister));
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(driver.titles, (Lines{"A mentés nem sikerült", "A mentés nem sikerült"}));
}

}  // namespace
}  // namespace Quillane
