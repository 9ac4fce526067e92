// What happens when the user acts on a finding in item data.
#include "plugin/RepairItemDataMessageEvent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/contract/Invoice.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using testing::ElementsAre;
using TestSupport::ModalDriver;

namespace Quillane::Plugin::ItemData {
namespace {

class RepairItemDataMessageEventTest : public testing::Test {
 protected:
  RepairItemDataMessageEventTest() {
    testAccount();
    form.addItem("Szék");
    item = form.addItem("Asztal");
    auto* list = new ItemDataList(item, nullptr);
    item->addMiscData(ItemDataList::kMiscDataKey, list);
    list->append(new ItemDataStringEntry(item));
  }

  TestSupport::TestForm form;
  InvoiceItem* item = nullptr;  // the form's document owns it
};

TEST_F(RepairItemDataMessageEventTest, isOfKindTwo) { EXPECT_EQ(RepairItemDataMessageEvent(&form, item).getKind(), 2); }

TEST_F(RepairItemDataMessageEventTest, opensTheDialogOnItsItem) {
  RepairItemDataMessageEvent event(&form, item);
  const FXWindow* owner = nullptr;
  ModalDriver driver([&](FXDialogBox& dialog) {
    owner = dialog.getOwner();
    TestSupport::accept(dialog);
  });
  event.execute(nullptr, 0);
  EXPECT_THAT(driver.titles, ElementsAre("Asztal egyéb tételadatai"));
  EXPECT_EQ(owner, &form);
}

TEST_F(RepairItemDataMessageEventTest, opensTheDialogAlsoOnAnItemWithoutItemData) {
  RepairItemDataMessageEvent event(&form, form.getInvoice()->getItems()[0]);
  ModalDriver driver(TestSupport::accept);
  event.execute(nullptr, 0);
  EXPECT_THAT(driver.titles, ElementsAre("Szék egyéb tételadatai"));
}

TEST_F(RepairItemDataMessageEventTest, proposesTheCheckAfterTheDialogWasAccepted) {
  RepairItemDataMessageEvent event(&form, item);
  ModalDriver driver(TestSupport::accept);
  EXPECT_EQ(form.takeChecks(), 0);
  event.execute(nullptr, 0);
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(RepairItemDataMessageEventTest, proposesTheCheckAfterTheDialogWasCancelled) {
  RepairItemDataMessageEvent event(&form, item);
  ModalDriver driver(TestSupport::cancel);
  event.execute(nullptr, 0);
  EXPECT_EQ(form.takeChecks(), 1);
}

TEST_F(RepairItemDataMessageEventTest, checksNothingWhileTheDialogIsOpen) {
  RepairItemDataMessageEvent event(&form, item);
  int checksMeanwhile = -1;
  ModalDriver driver([&](FXDialogBox& dialog) {
    checksMeanwhile = form.takeChecks();
    TestSupport::accept(dialog);
  });
  event.execute(nullptr, 0);
  EXPECT_EQ(checksMeanwhile, 0);
}

TEST_F(RepairItemDataMessageEventTest, ignoresTheMessageAndTheOption) {
  Message message("KEY", Message::ERROR, "text", "place", nullptr, nullptr, nullptr);
  RepairItemDataMessageEvent event(&form, item);
  ModalDriver driver(TestSupport::accept);
  event.execute(&message, 5);
  event.execute(nullptr, -1);
  EXPECT_THAT(driver.titles, ElementsAre("Asztal egyéb tételadatai", "Asztal egyéb tételadatai"));
  EXPECT_EQ(message.getText(), "text");
}

TEST_F(RepairItemDataMessageEventTest, leavesTheFormAndTheItemBehind) {
  auto message = std::make_unique<Message>("KEY", Message::ERROR, "text", "place", nullptr,
                                           new RepairItemDataMessageEvent(&form, item), nullptr);
  message.reset();
  EXPECT_EQ(item->getName(), "Asztal");
  EXPECT_EQ(form.getInvoice()->getItems()[1], item);
  EXPECT_EQ(form.takeChecks(), 0);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
