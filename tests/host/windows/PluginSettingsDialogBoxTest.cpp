// The frame of the dialogs in which modules are set up, without a display.
#include "plugin/contract/PluginSettingsDialogBox.h"

#include <gtest/gtest.h>

#include "plugin/contract/PluginContainer.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using TestSupport::ModalDriver;

namespace Quillane::Plugin::UI {
namespace {

class SettingsBox : public testing::Test {
 protected:
  /// The button of the box that sends this command; null when there is none.
  static FXButton* findButton(FXWindow& window, FXSelector command) {
    for (FXWindow* child = window.getFirst(); child; child = child->getNext()) {
      auto* button = dynamic_cast<FXButton*>(child);
      if (button && button->getSelector() == command) return button;
      if (FXButton* below = findButton(*child, command)) return below;
    }
    return nullptr;
  }

  static ModalDriver::Answer press(FXSelector command) {
    return [command](FXDialogBox& box) {
      FXButton* button = findButton(box, command);
      ASSERT_NE(button, nullptr);
      EXPECT_EQ(button->getTarget(), &box);
      button->getTarget()->handle(button, FXSEL(SEL_COMMAND, command), nullptr);
    };
  }

  PluginContainer container{&testAccount(), "CodeName", "Egyéb adatok", "1", ""};
  PluginSettingsDialogBox box{&container, &testAccount()};
};

TEST_F(SettingsBox, isNamedAfterTheModule) { EXPECT_EQ(box.getTitle(), "Egyéb adatok – beállítások"); }

TEST_F(SettingsBox, hasRoomForTheModulesWidgets) {
  ASSERT_NE(box.getContentFrame(), nullptr);
  EXPECT_EQ(box.getContentFrame()->getShell(), &box);
  EXPECT_EQ(box.getContentFrame()->numChildren(), 0);
}

TEST_F(SettingsBox, isAcceptedByItsButton) {
  ModalDriver driver(press(61));
  EXPECT_EQ(box.execute(PLACEMENT_SCREEN), 1u);
}

TEST_F(SettingsBox, isGivenUpByItsButton) {
  ModalDriver driver(press(FXDialogBox::ID_CANCEL));
  EXPECT_EQ(box.execute(PLACEMENT_SCREEN), 0u);
}

}  // namespace
}  // namespace Quillane::Plugin::UI
