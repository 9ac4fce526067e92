// The settings on a display, opened as the host opens them, and worked in with real keys and clicks.
#include <gmock/gmock.h>

#include <clocale>

#include "itemdata/ItemDataPluginList.h"
#include "plugin/ItemDataContainer.h"
#include "plugin/contract/DBTable.h"
#include "tests/support/FakeInput.h"
#include "tests/support/KeyScript.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/ToolkitApplication.h"
#include "tests/support/WaitCursor.h"
#include "tests/ui/DialogFixture.h"
#include "tests/ui/SettingsFixture.h"
#include "ui/ItemDataSettingsPersister.h"

using namespace FX;
using testing::ElementsAre;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::KeyScript;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataSettingsPanelWindow : public SettingsTest {
 protected:
  void SetUp() override {
    std::setlocale(LC_CTYPE, "C.UTF-8");  // as the programs choose it: without it the display gives no such letters
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    windowsBefore = testAccount().getRootWindow()->numChildren();
  }

  void TearDown() override {
    plugins.clear();  // a container leaves its pointers there
    if (!testAccount().isInitialized()) return;
    TestSupport::runEvents(20);
    EXPECT_EQ(testAccount().getRootWindow()->numChildren(), windowsBefore) << "a window was left behind";
  }

  /// The settings, while they are open; null before and afterwards.
  static ItemDataSettingsPanel* settings() {
    FXWindow* root = testAccount().getRootWindow();
    for (FXWindow* child = root->getFirst(); child; child = child->getNext()) {
      if (auto* found = dynamic_cast<ItemDataSettingsPanel*>(child)) return found;
    }
    return nullptr;
  }

  static DBTable& table() { return *settings()->getTable(); }

  /// The box that is open over the settings; null when there is none.
  static FXDialogBox* box() {
    auto* modal = dynamic_cast<FXDialogBox*>(testAccount().getModalWindow());
    return modal && modal != settings() && isOnScreen(*modal) ? modal : nullptr;
  }

  static bool isEditing() {
    for (FXWindow* child = table().getFirst(); child; child = child->getNext()) {
      if (dynamic_cast<FXTextField*>(child) || dynamic_cast<FXComboBox*>(child)) return true;
    }
    return false;
  }

  /// The button with this text in the settings.
  static FXButton* button(const char* text) {
    for (FXButton* found : widgetsIn<FXButton>(*settings()))
      if (found->getText() == text) return found;
    return nullptr;
  }

  static bool says(const char* sentence) {
    for (const FXLabel* label : widgetsIn<FXLabel>(*settings()))
      if (label->getText() == sentence) return true;
    return false;
  }

  /// The list of a cell's choices, while it is open; null when it is not.
  static FXWindow* openList() {
    FXWindow* popup = testAccount().getPopupWindow();
    return popup && isOnScreen(*popup) ? popup : nullptr;
  }

  static bool isIn(FXint row, FXint column) {
    return testAccount().getModalWindow() == settings() && !isEditing() && table().getCurrentRow() == row &&
           table().getCurrentColumn() == column;
  }

  static void clickCell(FXint row, FXint column) {
    click(table(), 1, table().getColumnX(column) + table().getColumnWidth(column) / 2,
          table().getRowY(row) + table().getRowHeight(row) / 2);
  }

  /// The script's first two steps: the settings come up and get the keyboard, as a window manager would give it.
  static void begin(KeyScript& script) {
    script.step(
        "the settings are shown", [] { return settings() && isOnScreen(table()); }, [] { settings()->setFocus(); });
    script.step(
        "they have the keyboard", [] { return testAccount().getActiveWindow() == settings() && table().hasFocus(); },
        [] {});
  }

  /// Has the host open the settings and the script work in them; what the container answers.
  long run(KeyScript& script) {
    ItemDataContainer module(&testAccount());
    module.init();
    script.start();
    const long result = module.onSettings(nullptr, 0, nullptr);
    EXPECT_TRUE(script.isDone());
    return result;
  }

 private:
  FXint windowsBefore = 0;
};

TEST_F(ItemDataSettingsPanelWindow, showsTheWaitCursorWhileItReadsAndWrites) {
  fillVariables();
  TestSupport::WaitCursorLog waits(testAccount());
  company.getDB()->setObserver(&waits);
  open();
  EXPECT_THAT(waits.counts, ElementsAre(1));
  waits.counts.clear();
  panel->getTable()->setItemText(0, NAME, "Széria");
  ItemDataSettingsPersister persister(company.getDB());
  panel->save(&persister);
  EXPECT_THAT(waits.counts, ElementsAre(1));
  EXPECT_EQ(TestSupport::getWaitCount(testAccount()), 0u) << "what began has ended";
  company.getDB()->setObserver(nullptr);
  panel.reset();
}

TEST_F(ItemDataSettingsPanelWindow, waitsForTheUserWithoutTheWaitCursor) {
  fillVariables();
  company.run("create trigger refuse before update on t_itemvariable begin select raise(abort, 'no'); end");
  open();
  panel->getTable()->setItemText(0, NAME, "Széria");
  ItemDataSettingsPersister persister(company.getDB());
  std::vector<FXuint> counts;
  {
    const TestSupport::ModalDriver driver([&counts](FXDialogBox& dialog) {
      counts.push_back(TestSupport::getWaitCount(testAccount()));
      TestSupport::cancel(dialog);
    });
    panel->save(&persister);
  }
  EXPECT_THAT(counts, ElementsAre(0));
  EXPECT_EQ(TestSupport::getWaitCount(testAccount()), 0u);
  panel.reset();
}

TEST_F(ItemDataSettingsPanelWindow, definesAListByTheKeyboardAlone) {
  fillVariables();
  KeyScript script;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); }, [] { typeKey("Insert"); });
  script.step(
      "there is a new row", [] { return table().getNumRows() == 4 && isIn(3, NAME); },
      [] {
        typeText("Meret");
        typeKey("Tab");
      });
  script.step(
      "the type is next", [] { return isIn(3, TYPE); }, [] { typeKey("L"); });
  script.step("the types can be chosen", isEditing, [] { typeKey("Return"); });
  script.step(
      "a list is chosen", [] { return isIn(3, TYPE) && table().getItemText(3, TYPE) == "Lista"; },
      [] { typeKey("Tab"); });
  script.step(
      "a check box is next", [] { return isIn(3, PER_UNIT); },
      [] {
        typeKey("space");
        typeKey("Tab");
        typeKey("Tab");
      });
  script.step(
      "the parameter is next", [] { return isIn(3, PARAMETER); },
      [] {
        typeKey("S");
        typeKey("comma");
        typeKey("M");
        typeKey("Return");
      });
  script.step(
      "the row is complete", [] { return !isEditing() && table().getItemText(3, PARAMETER) == "S,M"; },
      [] {
        takeScreenshot("settings");
        typeKey("o", "Alt_L");
      });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(stored(), (Grid{{"5", "Gyári szám", "1", "1", "1", "NULL"},
                            {"7", "Szín", "3", "0", "0", "piros,kék"},
                            {"12", "Lejárat", "2", "0", "1", ""},
                            {"13", "Meret", "3", "1", "0", "S,M"}}));
}

TEST_F(ItemDataSettingsPanelWindow, takesOverTheCellThatIsBeingEditedWhenOKIsPressed) {
  fillVariables();
  KeyScript script;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); },
      [] {
        typeText("Szeria");
        typeKey("o", "Alt_L");
      });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(company.query("select name from t_itemvariable where t_itemvariable_id=5"), (Grid{{"Szeria"}}));
}

TEST_F(ItemDataSettingsPanelWindow, definesAFieldByTheMouse) {
  fillVariables();
  KeyScript script;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); },
      [] {
        takeScreenshot("settings-buttons");
        click(*button("Új mező"));
      });
  script.step(
      "there is a new row", [] { return isIn(3, NAME) && table().hasFocus(); },
      [] {
        typeText("Meret");
        clickCell(3, TYPE);
      });
  script.step(
      "its type is current", [] { return isIn(3, TYPE); }, [] { clickCell(3, TYPE); });
  script.step(
      "the types are listed", [] { return openList() != nullptr; },
      [] {
        const FXWindow& list = *openList();
        TestSupport::movePointer(list);
        click(list, 1, list.getWidth() / 2, list.getHeight() / 2);
      });
  script.step(
      "the second is chosen", [] { return isIn(3, TYPE) && table().getItemText(3, TYPE) == "Dátum"; },
      [] { typeKey("o", "Alt_L"); });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(company.query("select name, type from t_itemvariable where t_itemvariable_id=13"), (Grid{{"Meret", "2"}}));
}

TEST_F(ItemDataSettingsPanelWindow, deletesByItsButtonWhatIsNotInUse) {
  fillVariables();
  assign("service", 5);
  KeyScript script;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); }, [] { click(*button("Törlés")); });
  script.step(
      "the reason is told", [] { return says("„Gyári szám” nem törölhető, mert cikkekhez van hozzárendelve."); },
      [] {
        EXPECT_EQ(box(), nullptr);
        takeScreenshot("settings-in-use");
        clickCell(1, NAME);
      });
  script.step(
      "the second row is current", [] { return isIn(1, NAME); }, [] { typeKey("t", "Alt_L"); });
  script.step(
      "the user is asked", [] { return box() != nullptr; }, [] { box()->setFocus(); });
  script.step(
      "the box has the keyboard", [] { return testAccount().getActiveWindow() == box(); },
      [] { typeKey("y", "Alt_L"); });
  script.step(
      "the row is gone", [] { return box() == nullptr && table().getNumRows() == 2; },
      [] {
        EXPECT_FALSE(says("„Gyári szám” nem törölhető, mert cikkekhez van hozzárendelve."));
        settings()->setFocus();
      });
  script.step(
      "the settings have the keyboard again", [] { return testAccount().getActiveWindow() == settings(); },
      [] {
        EXPECT_TRUE(table().hasFocus()) << "what is typed next is for the table";
        typeKey("o", "Alt_L");
      });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(company.query("select t_itemvariable_id from t_itemvariable where t_itemvariable_id>0 order by 1"),
            (Grid{{"5"}, {"12"}}));
}

TEST_F(ItemDataSettingsPanelWindow, asksTheDatabaseNothingWhileItWaits) {
  fillVariables();
  KeyScript script;
  std::vector<std::string> asked;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); },
      [&] {
        asked = watch([] { TestSupport::runEvents(200); });
        typeKey("Escape");
      });
  run(script);
  EXPECT_THAT(asked, ElementsAre()) << "its buttons ask when they are pressed";
}

TEST_F(ItemDataSettingsPanelWindow, opensForACompanyWithoutVariablesReadyForTheFirst) {
  KeyScript script;
  begin(script);
  script.step(
      "the table is empty", [] { return table().getNumRows() == 0; },
      [] {
        takeScreenshot("settings-empty");
        typeKey("Insert");
      });
  script.step(
      "there is a row", [] { return table().getNumRows() == 1; }, [] { typeKey("o", "Alt_L"); });
  script.step(
      "the user is told what is missing", [] { return box() != nullptr; },
      [] {
        EXPECT_EQ(box()->getTitle(), "A lista elemei hiányosak!");
        takeScreenshot("settings-incomplete");
        box()->setFocus();
      });
  script.step(
      "the box has the keyboard", [] { return testAccount().getActiveWindow() == box(); }, [] { typeKey("Return"); });
  script.step(
      "the settings are still open", [] { return box() == nullptr && testAccount().getModalWindow() == settings(); },
      [] {
        EXPECT_EQ(table().getNumRows(), 1);
        EXPECT_TRUE(isIn(0, NAME));
        settings()->setFocus();
      });
  script.step(
      "they have the keyboard again", [] { return testAccount().getActiveWindow() == settings(); },
      [] { typeKey("Escape"); });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(stored(), Grid{});
}

TEST_F(ItemDataSettingsPanelWindow, deletesByTheDeleteKeyWhatIsNotInUse) {
  fillVariables();
  assign("suite", 7);
  record(5, 3);
  KeyScript script;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); },
      [] {
        typeKey("Down");
        typeKey("Delete");  // the list, which a suite has
        typeKey("Up");
        typeKey("Delete");
      });
  script.step(
      "the user is asked", [] { return box() != nullptr; },
      [] {
        EXPECT_EQ(table().getCurrentRow(), 0);
        EXPECT_EQ(table().getSelStartRow(), 0) << "the user sees which row it is about";
        EXPECT_EQ(table().getSelEndRow(), 0);
        takeScreenshot("settings-delete");
        box()->setFocus();
      });
  script.step(
      "the box has the keyboard", [] { return testAccount().getActiveWindow() == box(); },
      [] { typeKey("y", "Alt_L"); });
  script.step(
      "the row is gone", [] { return box() == nullptr && table().getNumRows() == 2; },
      [] {
        EXPECT_THAT(table().getDeletedKeys(), ElementsAre(5));
        settings()->setFocus();
      });
  script.step(
      "the settings have the keyboard again", [] { return testAccount().getActiveWindow() == settings(); },
      [] { typeKey("o", "Alt_L"); });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(stored(), (Grid{{"7", "Szín", "3", "0", "0", "piros,kék"}, {"12", "Lejárat", "2", "0", "1", ""}}));
  EXPECT_EQ(company.query("select count(*) from t_invoiceitemdata where t_itemvariable_1 is null"), (Grid{{"3"}}));
}

TEST_F(ItemDataSettingsPanelWindow, togglesCheckBoxesByClicks) {
  fillVariables();
  KeyScript script;
  begin(script);
  script.step(
      "the first row is current", [] { return isIn(0, NAME); },
      [] {
        clickCell(1, MANDATORY);
        clickCell(2, PER_UNIT);
      });
  script.step(
      "both are checked", [] { return table().isChecked(1, MANDATORY) && table().isChecked(2, PER_UNIT); },
      [] { typeKey("o", "Alt_L"); });
  EXPECT_EQ(run(script), 1);
  EXPECT_EQ(stored(), (Grid{{"5", "Gyári szám", "1", "1", "1", "NULL"},
                            {"7", "Szín", "3", "0", "1", "piros,kék"},
                            {"12", "Lejárat", "2", "1", "1", ""}}));
}

TEST_F(ItemDataSettingsPanelWindow, showsEveryTitleWhole) {
  fillVariables();
  KeyScript script;
  begin(script);
  script.step(
      "the settings have their size", [] { return settings()->getWidth() == 600; },
      [] {
        const FXHeader& header = *table().getColumnHeader();
        for (FXint column = 0; column < table().getNumColumns(); ++column) {
          EXPECT_LT(header.getFont()->getTextWidth(header.getItemText(column)), table().getColumnWidth(column) - 8)
              << header.getItemText(column).text();
        }
        EXPECT_LE(table().getColumnX(4) + table().getColumnWidth(4), table().getWidth())
            << "nothing has to be scrolled to";
        typeKey("Escape");
      });
  run(script);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
