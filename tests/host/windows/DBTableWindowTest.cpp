// The table of records on a display: real keys, clicks and menus.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

#include "host/windows/ChoiceEditor.h"
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

  const ChoiceEditor* getChoiceEditor() const {
    for (FXWindow* child = table->getFirst(); child; child = child->getNext())
      if (const auto* choices = dynamic_cast<ChoiceEditor*>(child)) return choices;
    return nullptr;
  }

  std::string shownChoice() const { return getChoiceEditor() ? getChoiceEditor()->getText().text() : "no editor"; }

  bool isListOpen() const {
    const ChoiceEditor* choices = getChoiceEditor();
    return choices && choices->isPaneShown() && testAccount().getPopupWindow() &&
           TestSupport::isOnScreen(*testAccount().getPopupWindow());
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
  typeKey("r");
  EXPECT_SOON(isEditing());
  typeKey("Return");
  EXPECT_SOON(!isEditing());
  EXPECT_EQ(table->getItemText(3, KIND), "réz");
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

TEST_F(DBTableWindow, choosesByTheFirstLettersWhateverTheirCaseAndAccents) {
  goTo(0, KIND);
  typeText("MUa");
  EXPECT_SOON(shownChoice() == "műanyag");
  EXPECT_EQ(table->getItemText(0, KIND), "vas") << "it is not taken yet";
  typeKey("Return");
  EXPECT_SOON(!isEditing());
  EXPECT_EQ(table->getValueKey(0, KIND), "3");
  EXPECT_TRUE(table->isChangedRow(0));
  EXPECT_EQ(owner.replaced, 1);
}

TEST_F(DBTableWindow, goesThroughTheChoicesOfALetterThatIsPressedAgain) {
  table->setColumnValues(KIND, "1\tvas\n2\tréz\n3\tvászon", true);
  goTo(0, KIND);
  for (const char* const choice : {"vászon", "vas", "vászon"}) {
    typeKey("v");
    EXPECT_SOON(shownChoice() == choice);
  }
  typeKey("x");  // no choice begins with it
  typeKey("Escape");
  EXPECT_SOON(!isEditing());
  EXPECT_EQ(table->getItemText(0, KIND), "vas");
}

TEST_F(DBTableWindow, choosesWithTheArrowsAndTakesTheChoiceWithTab) {
  table->setValueKey(1, KIND, "");
  goTo(1, KIND);
  typeKey("F2");
  EXPECT_SOON(isEditing());
  const std::pair<const char*, const char*> steps[] = {{"Down", "vas"},     {"Down", "réz"}, {"Down", "műanyag"},
                                                       {"Down", "műanyag"}, {"Up", "réz"},   {"End", "műanyag"},
                                                       {"Home", "vas"},     {"Down", "réz"}};
  for (const auto& [key, choice] : steps) {
    typeKey(key);
    EXPECT_SOON(shownChoice() == choice);
  }
  typeKey("Tab");
  EXPECT_SOON(table->getCurrentColumn() == STOCKED);
  EXPECT_FALSE(isEditing());
  EXPECT_EQ(table->getValueKey(1, KIND), "2");
  typeKey("Tab", "Shift_L");
  EXPECT_SOON(table->getCurrentColumn() == KIND);
}

TEST_F(DBTableWindow, opensTheListOfChoicesByKeys) {
  for (const auto& [key, modifier] : {std::pair{"space", ""}, std::pair{"Down", "Alt_L"}}) {
    goTo(0, KIND);
    typeKey(key, modifier);
    EXPECT_SOON(isListOpen());
    screenshot("record-table-choices");
    typeKey("Escape");
    EXPECT_SOON(!isListOpen());
    EXPECT_TRUE(isEditing()) << "only the list is closed";
    typeKey(key, modifier);
    EXPECT_SOON(isListOpen());
    typeKey("Down");
    typeKey("Return");
    EXPECT_SOON(!isEditing());
  }
  EXPECT_EQ(table->getItemText(0, KIND), "műanyag");
}

TEST_F(DBTableWindow, opensTheListOfChoicesWithAClickOnTheCurrentCell) {
  goTo(0, NAME);
  clickCell(kLeft, 1, KIND);
  EXPECT_SOON(table->getCurrentColumn() == KIND);
  runEvents(50);
  EXPECT_FALSE(isEditing()) << "the first click is for the row";
  clickCell(kLeft, 1, KIND);
  ASSERT_SOON(isListOpen());
  const FXWindow& list = *testAccount().getPopupWindow();
  TestSupport::movePointer(list);
  TestSupport::click(list, kLeft, list.getWidth() / 2, list.getHeight() - 5);
  EXPECT_SOON(!isEditing());
  EXPECT_EQ(table->getItemText(1, KIND), "műanyag");
}

TEST_F(DBTableWindow, opensNoListOfATableThatCannotBeEdited) {
  table->setEditable(FALSE);
  goTo(0, KIND);
  typeKey("space");
  typeKey("v");
  clickCell(kLeft, 0, KIND);
  runEvents(100);
  EXPECT_FALSE(isEditing());
}

TEST_F(DBTableWindow, givesTheLastColumnTheRoomThatIsLeft) {
  const auto others = [this] {
    FXint width = table->getRowHeaderWidth();
    for (FXint column = 0; column < NOTE; ++column) width += table->getColumnWidth(column);
    return width;
  };
  EXPECT_NEAR(table->getColumnWidth(NOTE), table->getWidth() - others(), 4);
  window->resize(600, 300);
  EXPECT_SOON(table->getColumnWidth(NOTE) > 200);
  EXPECT_NEAR(table->getColumnWidth(NOTE), table->getWidth() - others(), 4);

  // A scroll bar takes its room from the last column, instead of calling for another one.
  while (!table->verticalScrollBar()->shown()) {
    table->insertRows(table->getNumRows(), 5);
    runEvents(20);
  }
  EXPECT_FALSE(table->horizontalScrollBar()->shown());
  EXPECT_NEAR(table->getColumnWidth(NOTE), table->verticalScrollBar()->getX() - others(), 4);

  table->setColumnWidth(NAME, 2000);
  EXPECT_SOON(table->horizontalScrollBar()->shown());
  EXPECT_GT(table->getColumnWidth(NOTE), 0);
}

TEST_F(DBTableWindow, showsWhatIsCutOffOfATextInATip) {
  FXToolTip tip(&testAccount());
  tip.create();
  testAccount().setTooltipPause(50);
  table->setItemText(0, NAME, "Hatlapfejű csavar, tövig menetes");
  table->setItemText(1, NAME, "Koronás anya, sasszegnek fúrva");
  const auto pointAt = [this](FXint row, FXint column) {
    TestSupport::movePointer(*table, xOf(column), yOf(row) - 2);
    TestSupport::movePointer(*table, xOf(column), yOf(row) + 2);
  };
  pointAt(0, NAME);
  EXPECT_SOON(tip.shown() && tip.getText() == "Hatlapfejű csavar, tövig menetes");
  pointAt(1, NAME);
  EXPECT_SOON(tip.shown() && tip.getText() == "Koronás anya, sasszegnek fúrva");
  pointAt(1, KIND);
  EXPECT_SOON(!tip.shown());
}

TEST_F(DBTableWindow, isReadyForTypingAfterAButtonAddedARow) {
  table->insertRows(table->getNumRows(), 30);
  runEvents(50);
  below->setFocus();
  table->handle(below, FXSEL(SEL_COMMAND, DBTable::ID_ADD_ROW), nullptr);
  EXPECT_TRUE(table->hasFocus());
  EXPECT_EQ(table->getNumRows(), 34);
  EXPECT_LE(table->getRowY(33) + table->getRowHeight(33), table->getViewportHeight() + 2) << "it can be seen";
  typeText("Szeg");
  typeKey("Return");
  EXPECT_SOON(table->getItemText(33, NAME) == "Szeg");
}

TEST_F(DBTableWindow, asksBeforeAButtonDeletes) {
  goTo(1, NAME);
  below->setFocus();
  owner.allows = false;
  table->handle(below, FXSEL(SEL_COMMAND, DBTable::ID_DELETE_ROWS), nullptr);
  EXPECT_EQ(owner.asked, 1);
  EXPECT_EQ(owner.told, 0);
  EXPECT_EQ(table->getNumRows(), 3);
  owner.allows = true;
  table->handle(below, FXSEL(SEL_COMMAND, DBTable::ID_DELETE_ROWS), nullptr);
  EXPECT_EQ(owner.asked, 2);
  EXPECT_EQ(table->getNumRows(), 2);
  EXPECT_TRUE(table->hasFocus());
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
