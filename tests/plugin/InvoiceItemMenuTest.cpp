// The entry in the item table's context menu: which dialogs it opens, and that it has the document checked.
#include "plugin/InvoiceItemMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/PluginContainer.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::ModalDriver;

namespace Quillane::Plugin::ItemData {
namespace {

class InvoiceItemMenuTest : public testing::Test {
 protected:
  InvoiceItemMenuTest() {
    testAccount();
    for (const char* name : {"Szék", "Asztal", "Lámpa", "Polc", "Ágy"}) form.addItem(name);
    form.table->setCurrentItem(-1, -1);
    command = form.table->appendPluginEntry(&menu);
  }

  long pick() { return menu.handle(command, FXSEL(SEL_COMMAND, InvoiceItemMenuPlugin::ID_MENU_ITEM), nullptr); }

  void select(FXint first, FXint last) { form.table->selectRange(first, last, 0, 0); }

  /// The titles of the dialogs that picking the entry opens, each of which is accepted.
  std::vector<std::string> titlesOfPicking() {
    ModalDriver driver(TestSupport::accept);
    EXPECT_EQ(pick(), 1);
    return driver.titles;
  }

  InvoiceItemMenu menu{nullptr, 0, "Egyéb tételadatok...\t\t"};
  TestSupport::TestForm form;
  FXMenuCommand* command = nullptr;  // the table's menu owns it
};

TEST_F(InvoiceItemMenuTest, opensNothingWithoutSelectionAndCurrentRowButProposesTheCheck) {
  ASSERT_LT(form.table->getCurrentRow(), 0);
  EXPECT_THAT(titlesOfPicking(), IsEmpty());
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(InvoiceItemMenuTest, opensThreeDialogsInRowOrderForThreeSelectedRows) {
  select(1, 3);
  EXPECT_THAT(titlesOfPicking(),
              ElementsAre("Asztal egyéb tételadatai", "Lámpa egyéb tételadatai", "Polc egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, opensThemInRowOrderAlsoWhenTheyWereSelectedUpwards) {
  form.table->setAnchorItem(2, 0);
  form.table->extendSelection(0, 0);
  form.table->setCurrentItem(0, 0);
  EXPECT_THAT(titlesOfPicking(),
              ElementsAre("Szék egyéb tételadatai", "Asztal egyéb tételadatai", "Lámpa egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, opensTheRestAfterOneDialogWasCancelled) {
  select(1, 3);
  ModalDriver driver([](FXDialogBox& dialog) {
    const bool isSecond = dialog.getTitle() == "Lámpa egyéb tételadatai";
    if (isSecond) TestSupport::cancel(dialog);
    if (!isSecond) TestSupport::accept(dialog);
  });
  EXPECT_EQ(pick(), 1);
  EXPECT_THAT(driver.titles,
              ElementsAre("Asztal egyéb tételadatai", "Lámpa egyéb tételadatai", "Polc egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, opensEachDialogOverTheFormAfterTheEarlierOneWasClosed) {
  select(0, 1);
  std::vector<FXWindow*> owners;
  FXint mostOwned = 0;
  ModalDriver driver([&](FXDialogBox& dialog) {
    owners.push_back(dialog.getOwner());
    FXint owned = 0;
    for (FXWindow* window = form.getRoot()->getFirst(); window; window = window->getNext())
      if (dynamic_cast<FXDialogBox*>(window)) ++owned;
    mostOwned = std::max(mostOwned, owned);
    TestSupport::accept(dialog);
  });
  pick();
  EXPECT_THAT(owners, ElementsAre(&form, &form));
  EXPECT_EQ(mostOwned, 1);
}

TEST_F(InvoiceItemMenuTest, opensTheDialogOfTheCurrentRowWhenNoneIsSelected) {
  form.table->setCurrentItem(2, 0);
  EXPECT_THAT(titlesOfPicking(), ElementsAre("Lámpa egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, opensTheSelectedRowsAndNotTheCurrentOneBesideThem) {
  form.table->setCurrentItem(0, 0);
  select(4, 4);
  EXPECT_THAT(titlesOfPicking(), ElementsAre("Ágy egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, proposesTheCheckOnceAfterAllDialogs) {
  select(0, 2);
  int checksMeanwhile = 0;
  ModalDriver driver([&](FXDialogBox& dialog) {
    checksMeanwhile += form.takeChecks();
    TestSupport::accept(dialog);
  });
  pick();
  EXPECT_EQ(checksMeanwhile, 0);
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(InvoiceItemMenuTest, proposesTheCheckAlsoAfterACancelledDialog) {
  select(1, 1);
  ModalDriver driver(TestSupport::cancel);
  EXPECT_EQ(pick(), 1);
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(InvoiceItemMenuTest, opensNothingOnAnEmptyDocument) {
  form.table->setTableSize(0, 3);
  EXPECT_THAT(titlesOfPicking(), IsEmpty());
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(InvoiceItemMenuTest, opensNothingForARowThatHasNoItem) {
  form.table->insertRows(5);
  select(4, 5);
  EXPECT_THAT(titlesOfPicking(), ElementsAre("Ágy egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, canBePickedForEveryItemAlsoWithoutItemData) {
  InvoiceItem* withItemData = form.getInvoice()->getItems()[1];
  auto* list = new ItemDataList(withItemData, nullptr);
  withItemData->addMiscData(ItemDataList::kMiscDataKey, list);
  list->append(new ItemDataStringEntry(withItemData));
  for (const FXint row : {0, 1}) {
    command->disable();
    form.table->selectOnly(row);
    command->handle(nullptr, FXSEL(SEL_UPDATE, 0), nullptr);
    EXPECT_TRUE(command->isEnabled()) << row;
  }
  EXPECT_THAT(titlesOfPicking(), ElementsAre("Asztal egyéb tételadatai"));
  form.table->selectOnly(0);
  EXPECT_THAT(titlesOfPicking(), ElementsAre("Szék egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, canBeRunByTheTableToo) {
  form.table->selectOnly(3);
  ModalDriver driver(TestSupport::accept);
  EXPECT_TRUE(form.table->runPluginEntry(&menu));
  EXPECT_THAT(driver.titles, ElementsAre("Polc egyéb tételadatai"));
}

TEST_F(InvoiceItemMenuTest, needsNoInitOfItsOwn) { EXPECT_EQ(menu.init(), 0); }

}  // namespace
}  // namespace Quillane::Plugin::ItemData
