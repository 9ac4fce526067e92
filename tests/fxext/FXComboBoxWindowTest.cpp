// The type-ahead combo box on a display, with real keys and real time.
#include "fxext/FXComboBox.h"

#include <fxkeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/fxext/WindowFixture.h"
#include "tests/support/RecordingTarget.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::RecordingTarget;
using TestSupport::runEvents;
using TestSupport::toolkitApplication;
using TestSupport::turnWheel;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace {

/// A combo box between two text fields, with the focus in it and a choice stored in a data target.
class ComboBoxWindow : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    if (HasFatalFailure()) return;
    toolkitApplication().setTypingSpeed(2000);
    before = new FXTextField(form, 10, nullptr, 0, FRAME_LINE | LAYOUT_FILL_X);
    combo = new FXExt::FXComboBox(form, 2, &data, FXDataTarget::ID_VALUE, COMBOBOX_STATIC | LAYOUT_FILL_X, 0, 0, 0, 0,
                                  2, 2, 2, 2);
    after = new FXTextField(form, 10, nullptr, 0, FRAME_LINE | LAYOUT_FILL_X);
    combo->fillItems(FXString(" \nAlma\nBarack\nBanan\nBab\nKorte"));
    combo->setNumVisible(6);
    show(before);
    store("Alma");
  }

  /// Puts a choice into the data target, from where the combo box shows it, and the focus into the combo box.
  void store(const FXString& choice) {
    before->setFocus();  // a field that has the focus is not asked to show anything
    value = choice;
    toolkitApplication().refresh();
    ASSERT_SOON(combo->getText() == choice);
    combo->getFirst()->setFocus();
    ASSERT_SOON(combo->getFirst()->hasFocus());
  }

  FXString value;
  FXDataTarget data{value};
  FXTextField* before = nullptr;  // these are owned by the window
  FXExt::FXComboBox* combo = nullptr;
  FXTextField* after = nullptr;
};

TEST_F(ComboBoxWindow, jumpsToTheTypedBeginning) {
  typeKey("B");
  EXPECT_SOON(value == "Barack");
  typeText("an");
  EXPECT_SOON(value == "Banan");
  EXPECT_EQ(combo->getText(), "Banan");
  EXPECT_EQ(combo->getLookup(), "Ban");
}

TEST_F(ComboBoxWindow, beginsAnewAfterThePause) {
  toolkitApplication().setTypingSpeed(50);
  typeKey("B");
  EXPECT_SOON(value == "Barack");
  EXPECT_SOON(combo->getLookup().empty());
  typeKey("K");
  EXPECT_SOON(value == "Korte");
  EXPECT_SOON(combo->getLookup().empty());
  EXPECT_EQ(combo->getText(), "Korte");
}

TEST_F(ComboBoxWindow, swallowsALetterThatNothingBeginsWith) {
  typeKey("B");
  EXPECT_SOON(value == "Barack");
  typeKey("q");
  EXPECT_SOON(combo->getLookup().empty());
  EXPECT_EQ(value, "Barack");
}

TEST_F(ComboBoxWindow, stepsFromTheStoredChoice) {
  store("Banan");
  typeKey("Down");
  EXPECT_SOON(value == "Bab");
  typeKey("Up");
  typeKey("Up");
  EXPECT_SOON(value == "Barack");
  EXPECT_TRUE(combo->getFirst()->hasFocus()) << "the arrows do not move the focus";
}

TEST_F(ComboBoxWindow, looksNothingUpByReturnSpaceOrControl) {
  typeKey("Return");
  typeKey("space");
  typeKey("B", "Control_L");
  typeKey("b", "Alt_L");
  typeKey("Shift_L");
  runEvents(50);
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_EQ(value, "Alma");
  EXPECT_TRUE(combo->getFirst()->hasFocus());
}

TEST_F(ComboBoxWindow, stepsWithTheWheelFromTheStoredChoice) {
  store("Banan");
  ASSERT_NE(combo->getItemText(combo->getCurrentItem()), "Banan") << "else the list would be right by chance";
  turnWheel(*combo->getFirst(), false);
  EXPECT_SOON(value == "Bab");
  store("Korte");
  turnWheel(*combo->getFirst(), true);
  EXPECT_SOON(value == "Bab");
}

TEST_F(ComboBoxWindow, movesTheFocusByTab) {
  typeKey("Tab");
  EXPECT_SOON(!combo->getFirst()->hasFocus());
  typeKey("Tab");
  EXPECT_SOON(after->hasFocus());
}

TEST_F(ComboBoxWindow, doesNotLetDeleteReachTheAcceleratorsOfTheWindow) {
  RecordingTarget accelerated([](const void*) { return std::string(); });
  window->getAccelTable()->addAccel(MKUINT(KEY_Delete, 0), &accelerated, FXSEL(SEL_COMMAND, 9));
  typeKey("Delete");
  runEvents(50);
  EXPECT_THAT(accelerated.take(), IsEmpty());
  EXPECT_EQ(value, "Alma");
  after->setFocus();
  after->killFocus();
  typeKey("Delete");
  runEvents(50);
  EXPECT_THAT(accelerated.take(), ElementsAre("COMMAND 9")) << "with the focus elsewhere";
}

TEST_F(ComboBoxWindow, searchesAlsoWhileItsListIsDown) {
  click(*combo->getFirst());
  ASSERT_SOON(combo->isPaneShown());
  typeKey("K");
  EXPECT_SOON(value == "Korte");
  EXPECT_EQ(combo->getCurrentItem(), 5);
  click(*combo->getFirst());
  EXPECT_SOON(!combo->isPaneShown());
  EXPECT_EQ(value, "Korte");
}

// Also when the found item is the current one already.
TEST_F(ComboBoxWindow, scrollsItsListToTheFoundItem) {
  combo->fillItems(FXString("Dinnye\nEper\nFuge\nMalna\nRibizli\nSzeder\nZab"));
  const FXint last = combo->getNumItems() - 1;
  store("Zab");
  click(*combo->getFirst());
  ASSERT_SOON(combo->isPaneShown());
  const FXList* list = nullptr;
  for (FXWindow* pane = window->getRoot()->getFirst(); pane; pane = pane->getNext()) {
    if (pane->shown() && dynamic_cast<FXPopup*>(pane)) list = dynamic_cast<FXList*>(pane->getFirst());
  }
  ASSERT_NE(list, nullptr);
  ASSERT_SOON(isOnScreen(*list));
  ASSERT_FALSE(list->isItemVisible(last));
  typeKey("Z");
  EXPECT_SOON(list->isItemVisible(last));
  EXPECT_EQ(combo->getCurrentItem(), last);
  click(*combo->getFirst());
  EXPECT_SOON(!combo->isPaneShown());
}

TEST_F(ComboBoxWindow, ignoresKeysWhileDisabled) {
  typeKey("B");
  EXPECT_SOON(value == "Barack");
  combo->disable();
  typeKey("K");
  runEvents(50);
  EXPECT_EQ(value, "Barack");
}

TEST_F(ComboBoxWindow, dropsThePendingTimerAndItsResourcesWhenDetached) {
  typeKey("B");
  EXPECT_SOON(value == "Barack");
  ASSERT_NE(combo->id(), 0u);
  combo->detach();
  EXPECT_FALSE(toolkitApplication().hasTimeout(combo, FXExt::FXComboBox::ID_LOOKUPTIMER));
  EXPECT_EQ(combo->id(), 0u);
  EXPECT_EQ(combo->getFirst()->id(), 0u);
}

TEST_F(ComboBoxWindow, dropsThePendingTimerAndWorksAfterBeingCreatedAgain) {
  typeKey("B");
  EXPECT_SOON(value == "Barack");
  combo->destroy();
  EXPECT_FALSE(toolkitApplication().hasTimeout(combo, FXExt::FXComboBox::ID_LOOKUPTIMER));
  EXPECT_EQ(combo->id(), 0u) << "also the window's resources are gone";
  combo->create();
  ASSERT_SOON(isOnScreen(*combo));
  combo->handle(&toolkitApplication(), FXSEL(SEL_TIMEOUT, FXExt::FXComboBox::ID_LOOKUPTIMER), nullptr);
  combo->getFirst()->setFocus();
  typeKey("K");
  EXPECT_SOON(value == "Korte");
}

}  // namespace
