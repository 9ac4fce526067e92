// Where the module's dialogs come up on a display: under the pointer, which is where the user looks.
#include <gtest/gtest.h>

#include <memory>

#include "itemdata/ItemDataPluginList.h"
#include "plugin/InvoiceItemMenu.h"
#include "plugin/ItemDataContainer.h"
#include "plugin/RepairItemDataMessageEvent.h"
#include "tests/fxext/WindowFixture.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using TestSupport::ModalDriver;

namespace Quillane::Plugin::ItemData {
namespace {

// The toolkit leaves a little room between its dialogs and the edges of the screen.
constexpr int kMargin = 50;

/// The pointer rests near a corner of the screen, far from the form and from the middle.
class DialogPlacement : public testing::Test {
 protected:
  void SetUp() override {
    testAccount();
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    const FXRootWindow& root = *testAccount().getRootWindow();
    TestSupport::movePointer(root, root.getWidth() - kMargin, root.getHeight() - kMargin);
    driver = std::make_unique<ModalDriver>(look);
  }

  static bool isUnderPointer(const FXWindow& window) {
    FXint x = 0;
    FXint y = 0;
    FXuint buttons = 0;
    window.getCursorPosition(x, y, buttons);
    return 0 <= x && x < window.getWidth() && 0 <= y && y < window.getHeight();
  }

  /// Sees where the dialog came up, and closes it.
  static void look(FXDialogBox& dialog) {
    EXPECT_SOON(TestSupport::isOnScreen(dialog));
    EXPECT_TRUE(isUnderPointer(dialog));
    TestSupport::cancel(dialog);
  }

  std::unique_ptr<ModalDriver> driver;
};

class DialogPlacementOverForm : public DialogPlacement {
 protected:
  void SetUp() override {
    DialogPlacement::SetUp();
    if (HasFatalFailure()) return;
    item = form.addItem("Szék");
    form.create();
    form.show();
    ASSERT_SOON(TestSupport::isOnScreen(form));
    ASSERT_FALSE(isUnderPointer(form));
  }

  TestSupport::TestForm form;
  InvoiceItem* item = nullptr;  // the form's document owns it
};

TEST_F(DialogPlacementOverForm, ofARepairIsUnderThePointer) {
  RepairItemDataMessageEvent(&form, item).execute(nullptr, 0);
  EXPECT_EQ(driver->titles.size(), 1u);
}

TEST_F(DialogPlacementOverForm, ofTheMenuIsUnderThePointer) {
  InvoiceItemMenu menu(nullptr, 0, "Egyéb tételadatok...\t\t");
  form.table->appendPluginEntry(&menu);
  form.table->selectOnly(0);
  EXPECT_TRUE(form.table->runPluginEntry(&menu));
  EXPECT_EQ(driver->titles.size(), 1u);
}

TEST_F(DialogPlacement, ofTheSettingsIsUnderThePointer) {
  const TestCompany company;
  {
    ItemDataContainer container(&testAccount());
    container.init();
    EXPECT_EQ(container.onSettings(nullptr, 0, nullptr), 1);
  }
  plugins.clear();
  EXPECT_EQ(driver->titles.size(), 1u);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
