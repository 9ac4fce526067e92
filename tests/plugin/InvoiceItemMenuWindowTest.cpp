// From a real right click on the item table to the item data dialogs, and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "plugin/InvoiceItemMenu.h"
#include "plugin/contract/Forms.h"
#include "tests/fxext/WindowFixture.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using testing::ElementsAre;
using TestSupport::ModalDriver;

namespace Quillane::Plugin::ItemData {
namespace {

constexpr int kRight = 3;

/// Clicks on the command as soon as its menu is on the screen.
class CommandClicker : public FXObject {
 public:
  explicit CommandClicker(FXMenuCommand& clicked) : command(clicked) { testAccount().addTimeout(this, 0, kInterval); }
  ~CommandClicker() override { testAccount().removeTimeout(this, 0); }

  long handle(FXObject*, FXSelector, void*) override {
    if (TestSupport::isOnScreen(command)) {
      TestSupport::click(command);
    } else {
      testAccount().addTimeout(this, 0, kInterval);
    }
    return 1;
  }

 private:
  static constexpr FXuint kInterval = 10;  // milliseconds

  FXMenuCommand& command;
};

class InvoiceItemMenuWindow : public testing::Test {
 protected:
  void SetUp() override {
    testAccount();
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    windowsBefore = testAccount().getRootWindow()->numChildren();
    form = std::make_unique<TestSupport::TestForm>();
    for (const char* name : {"Szék", "Asztal", "Lámpa", "Polc"}) form->addItem(name);
    command = form->table->appendPluginEntry(&menu);
    form->create();
    form->show();
    ASSERT_SOON(TestSupport::isOnScreen(*form->table));
  }

  void TearDown() override {
    form.reset();
    if (!testAccount().isInitialized()) return;
    TestSupport::runEvents(20);
    EXPECT_EQ(testAccount().getRootWindow()->numChildren(), windowsBefore) << "a window was left behind";
  }

  void rightClickRow(FXint row) {
    const Quillane::InvoiceItemTable& table = *form->table;
    TestSupport::click(table, kRight, table.getColumnX(0) + table.getColumnWidth(0) / 2,
                       table.getRowY(row) + table.getRowHeight(row) / 2);
  }

  InvoiceItemMenu menu{nullptr, 0, "Egyéb tételadatok...\t\t"};
  std::unique_ptr<TestSupport::TestForm> form;
  FXMenuCommand* command = nullptr;  // the table's menu owns it

 private:
  FXint windowsBefore = 0;
};

/// Closes the dialog as a user does who has it in front and presses a key there: the menu has left it the keyboard.
void closeByEscape(FXDialogBox& dialog) {
  ASSERT_SOON(TestSupport::isOnScreen(dialog));
  dialog.setFocus();
  ASSERT_SOON(testAccount().getActiveWindow() == &dialog);
  TestSupport::typeKey("Escape");
  EXPECT_SOON(!dialog.shown());
}

TEST_F(InvoiceItemMenuWindow, opensADialogForEachSelectedRowThatIsClickedOn) {
  form->table->selectOnly(1);
  form->table->selectRange(1, 3, 0, 0);
  CommandClicker clicker(*command);
  ModalDriver driver(closeByEscape);
  rightClickRow(2);
  EXPECT_SOON(driver.titles.size() == 3);
  EXPECT_THAT(driver.titles,
              ElementsAre("Asztal egyéb tételadatai", "Lámpa egyéb tételadatai", "Polc egyéb tételadatai"));
  EXPECT_EQ(form->takeChecks(), 1);
}

TEST_F(InvoiceItemMenuWindow, opensTheDialogOfTheRowUnderTheClickWhenItWasNotSelected) {
  form->table->selectOnly(3);
  CommandClicker clicker(*command);
  ModalDriver driver(closeByEscape);
  rightClickRow(0);
  EXPECT_SOON(driver.titles.size() == 1);
  EXPECT_THAT(driver.titles, ElementsAre("Szék egyéb tételadatai"));
  EXPECT_EQ(form->takeChecks(), 1);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
