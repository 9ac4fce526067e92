// The look-up of the type-ahead combo box, key by key.
#include "fxext/FXComboBox.h"

#include <fxkeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/RecordingTarget.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::pressKey;
using TestSupport::RecordingTarget;
using TestSupport::toolkitApplication;

namespace {

constexpr FXSelector kMessage = 7;
constexpr FXSelector kTimer = 57;

/// The combo box with a look into what only descendants see.
class OpenComboBox : public FXExt::FXComboBox {
 public:
  using FXExt::FXComboBox::FXComboBox;
  FXList& getList() { return *list; }
  void takeListAway() { list = nullptr; }
};

class ComboBox : public testing::Test {
 protected:
  ComboBox() {
    toolkitApplication().setTypingSpeed(1000);
    window = std::make_unique<FXMainWindow>(&toolkitApplication(), "combo box");
    combo = makeCombo(&target);
    combo->fillItems(FXString(" \nAlma\nBarack\nBanán\nBab\nőszi\nalma\nözön"));
    target.take();
  }

  OpenComboBox* makeCombo(FXObject* receiver) {
    return new OpenComboBox(window.get(), 2, receiver, kMessage, COMBOBOX_STATIC, 0, 0, 0, 0, 2, 2, 2, 2);
  }

  long type(const FXString& character) { return pressKey(*combo, character[0], character); }

  /// Turns the wheel over the combo box's text field by one notch, towards the user when it is negative.
  static long turnWheel(FX::FXComboBox& box, FXint notch) {
    FXEvent event{};
    event.type = SEL_MOUSEWHEEL;
    event.code = 120 * notch;
    return box.getFirst()->handle(box.getApp(), FXSEL(SEL_MOUSEWHEEL, 0), &event);
  }

  void letTypingSpeedPass() { combo->handle(&toolkitApplication(), FXSEL(SEL_TIMEOUT, kTimer), nullptr); }

  bool isTimerPending() const { return toolkitApplication().hasTimeout(combo, kTimer); }

  RecordingTarget target{TestSupport::describeText};
  std::unique_ptr<FXMainWindow> window;
  OpenComboBox* combo;  // owned by the window
};

TEST_F(ComboBox, registersUnderItsNameWithNamespace) {
  EXPECT_STREQ(combo->getClassName(), "FXExt::FXComboBox");
  EXPECT_EQ(FXExt::FXComboBox::metaClass.getBaseClass(), &FX::FXComboBox::metaClass);
  EXPECT_EQ(FXMetaClass::getMetaClassFromName("FXExt::FXComboBox"), &FXExt::FXComboBox::metaClass);
}

TEST_F(ComboBox, isManufacturedByItsMetaClass) {
  static FXObject* made = nullptr;  // kept for good: the toolkit cannot delete a widget that has no parent
  made = FXExt::FXComboBox::metaClass.makeInstance();
  ASSERT_NE(dynamic_cast<FXExt::FXComboBox*>(made), nullptr);
  EXPECT_EQ(dynamic_cast<FXExt::FXComboBox*>(made)->getLookup(), "");
}

TEST_F(ComboBox, passesItsArgumentsToTheToolkitsCombo) {
  auto* made =
      new FXExt::FXComboBox(window.get(), 12, &target, 9, COMBOBOX_STATIC | LAYOUT_FILL_X, 1, 2, 3, 4, 5, 6, 7, 8);
  EXPECT_EQ(made->getNumColumns(), 12);
  EXPECT_EQ(made->getTarget(), &target);
  EXPECT_EQ(made->getSelector(), 9u);
  EXPECT_EQ(made->getComboStyle(), static_cast<FXuint>(COMBOBOX_STATIC));
  EXPECT_EQ(made->getLayoutHints(), static_cast<FXuint>(LAYOUT_FILL_X));
  EXPECT_THAT((std::vector<int>{made->getX(), made->getY(), made->getWidth(), made->getHeight()}),
              ElementsAre(1, 2, 3, 4));
  const auto* field = static_cast<FXTextField*>(made->getFirst());
  EXPECT_THAT((std::vector<int>{field->getPadLeft(), field->getPadRight(), field->getPadTop(), field->getPadBottom()}),
              ElementsAre(5, 6, 7, 8));
}

TEST_F(ComboBox, startsWithNothingLookedUp) {
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_FALSE(isTimerPending());
}

TEST_F(ComboBox, jumpsToTheFirstItemThatBeginsWithTheLetter) {
  EXPECT_EQ(type("B"), 1);
  EXPECT_EQ(combo->getCurrentItem(), 2);
  EXPECT_EQ(combo->getText(), "Barack");
  EXPECT_EQ(combo->getLookup(), "B");
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 66", "COMMAND 7 Barack"));
  EXPECT_EQ(target.lastSender, combo);
}

TEST_F(ComboBox, searchesForTheLongerPrefixWhileTypingGoesOn) {
  type("B");
  type("a");
  EXPECT_EQ(combo->getText(), "Barack") << "the current item is looked at first";
  type("n");
  EXPECT_EQ(combo->getText(), "Banán");
  EXPECT_EQ(combo->getLookup(), "Ban");
}

TEST_F(ComboBox, searchesForTheSecondLetterAloneAfterAPause) {
  type("B");
  letTypingSpeedPass();
  EXPECT_EQ(combo->getText(), "Barack");
  type("a");
  EXPECT_EQ(combo->getLookup(), "a");
  EXPECT_EQ(combo->getText(), "alma");
}

TEST_F(ComboBox, forgetsThePrefixWhenTheTimerFires) {
  type("B");
  EXPECT_EQ(combo->handle(&toolkitApplication(), FXSEL(SEL_TIMEOUT, kTimer), nullptr), 1);
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_EQ(combo->handle(&toolkitApplication(), FXSEL(SEL_TIMEOUT, kTimer), nullptr), 1);
}

TEST_F(ComboBox, waitsForTheTypingSpeedOfTheApplication) {
  toolkitApplication().setTypingSpeed(40000);
  type("B");
  ASSERT_TRUE(isTimerPending());
  EXPECT_GT(toolkitApplication().remainingTimeout(combo, kTimer), 30000u);
  EXPECT_LE(toolkitApplication().remainingTimeout(combo, kTimer), 40000u);
}

TEST_F(ComboBox, startsItsOneTimerAnewWithEveryLetter) {
  toolkitApplication().setTypingSpeed(40000);
  type("B");
  toolkitApplication().setTypingSpeed(90000);
  type("a");
  EXPECT_GT(toolkitApplication().remainingTimeout(combo, kTimer), 80000u);
  toolkitApplication().removeTimeout(combo, kTimer);
  EXPECT_FALSE(isTimerPending());
}

TEST_F(ComboBox, emptiesThePrefixAndStaysWhenNothingBeginsWithIt) {
  type("B");
  target.take();
  EXPECT_EQ(type("x"), 1) << "the key is swallowed";
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_EQ(combo->getText(), "Barack");
  EXPECT_EQ(combo->getCurrentItem(), 2);
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 120"));
  type("A");
  EXPECT_EQ(combo->getText(), "Alma") << "the next key begins a new search";
}

TEST_F(ComboBox, distinguishesCapitals) {
  type("b");
  EXPECT_EQ(combo->getText(), " ");
  type("a");
  EXPECT_EQ(combo->getText(), "alma");
}

TEST_F(ComboBox, searchesFromTheCurrentItemAndWrapsAround) {
  combo->setCurrentItem(3);
  type("B");
  EXPECT_EQ(combo->getText(), "Banán");
  letTypingSpeedPass();
  type("A");
  EXPECT_EQ(combo->getText(), "Alma");
}

TEST_F(ComboBox, tellsTheTargetOnlyWhenTheItemIsAnother) {
  type("B");
  target.take();
  type("a");
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 97"));
}

TEST_F(ComboBox, findsLettersOfSeveralBytes) {
  EXPECT_EQ(type("ö"), 1);
  EXPECT_EQ(combo->getText(), "özön");
  letTypingSpeedPass();
  EXPECT_EQ(type("ő"), 1);
  EXPECT_EQ(combo->getText(), "őszi");
  EXPECT_EQ(combo->getLookup(), "ő");
}

TEST_F(ComboBox, addsTheWholeTextOfTheKey) {
  EXPECT_EQ(pressKey(*combo, KEY_B, "Ba"), 1);
  EXPECT_EQ(combo->getLookup(), "Ba");
}

TEST_F(ComboBox, marksTheFoundItemInTheList) {
  type("B");
  FXList& list = combo->getList();
  EXPECT_TRUE(list.isItemSelected(2));
  EXPECT_FALSE(list.isItemSelected(0));
  EXPECT_EQ(list.getAnchorItem(), 2);
  EXPECT_EQ(list.getCurrentItem(), 2);
}

/// Writes down what a list tells of its selection.
class SelectionListener : public FXObject {
 public:
  long handle(FXObject*, FXSelector sel, void* ptr) override {
    const std::string item = std::to_string(reinterpret_cast<FXival>(ptr));
    if (FXSELTYPE(sel) == SEL_SELECTED) heard.push_back("selected " + item);
    if (FXSELTYPE(sel) == SEL_DESELECTED) heard.push_back("deselected " + item);
    return 0;
  }
  std::vector<std::string> heard;
};

TEST_F(ComboBox, tellsOfTheListsSelectionWhenItMarksTheFoundItem) {
  SelectionListener listener;
  combo->getList().selectItem(0);
  combo->getList().setTarget(&listener);
  type("B");
  EXPECT_THAT(listener.heard, ElementsAre("deselected 0", "selected 2"));
}

TEST_F(ComboBox, remembersTheTypedPrefixWithoutAList) {
  combo->takeListAway();
  EXPECT_EQ(type("B"), 1);
  EXPECT_EQ(combo->getLookup(), "B");
  EXPECT_TRUE(isTimerPending());
}

TEST_F(ComboBox, doesNothingWhenEmpty) {
  combo->clearItems();
  EXPECT_EQ(type("B"), 1);
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_EQ(combo->getCurrentItem(), -1);
}

TEST_F(ComboBox, doesNothingWithKeysWhileDisabled) {
  combo->disable();
  EXPECT_EQ(type("B"), 0);
  EXPECT_EQ(pressKey(*combo, KEY_Down), 0);
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_EQ(combo->getText(), " ");
  EXPECT_FALSE(isTimerPending());
  EXPECT_THAT(target.take(), IsEmpty());
}

TEST_F(ComboBox, leavesAKeyToTheTargetThatHandlesIt) {
  target.answered = {SEL_KEYPRESS};
  EXPECT_EQ(type("B"), 1);
  EXPECT_EQ(pressKey(*combo, KEY_Down), 1);
  EXPECT_EQ(combo->getLookup(), "");
  EXPECT_EQ(combo->getText(), " ");
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 66", "KEYPRESS 7 65364"));
}

TEST_F(ComboBox, worksWithoutATarget) {
  combo->setTarget(nullptr);
  EXPECT_EQ(type("B"), 1);
  EXPECT_EQ(combo->getText(), "Barack");
}

// Each of these keys carries a text that would be found.
struct RefusedKey {
  const char* name;
  FXint code;
  const char* text;
  FXint state;
};

std::vector<RefusedKey> refusedKeys() {
  std::vector<RefusedKey> keys = {
      {"space", 32, "B", 0},
      {"Return", 0xFF0D, "B", 0},
      {"keypad space", 0xFF80, "B", 0},
      {"left shift", 0xFFE1, "B", 0},
      {"right shift", 0xFFE2, "B", 0},
      {"left control", 0xFFE3, "B", 0},
      {"right control", 0xFFE4, "B", 0},
      {"left alt", 0xFFE9, "B", 0},
      {"right alt", 0xFFEA, "B", 0},
      {"control and a letter", KEY_B, "B", CONTROLMASK},
      {"alt and a letter", KEY_B, "B", ALTMASK},
      {"control, shift and a letter", KEY_B, "B", CONTROLMASK | SHIFTMASK},
      {"keypad Enter", 0xFF8D, "\r", 0},
      {"Escape", KEY_Escape, "\033", 0},
      {"F5 that carries a tab", KEY_F5, "\t", 0},
      {"Delete", KEY_Delete, "\177", 0},
      {"a function key", KEY_F5, "", 0},
      {"the last control character", KEY_F5, "\037", 0},
  };
  for (FXint code = 0xFF50; code <= 0xFF57; ++code) keys.push_back({"cursor block", code, "B", 0});
  for (FXint code = 0xFF95; code <= 0xFF9C; ++code) keys.push_back({"cursor block of the keypad", code, "B", 0});
  return keys;
}

TEST_F(ComboBox, neverSearchesWithKeysThatMeanSomethingElse) {
  for (const RefusedKey& key : refusedKeys()) {
    combo->setCurrentItem(0);
    pressKey(*combo, key.code, key.text, key.state);
    EXPECT_EQ(combo->getLookup(), "") << key.name << " " << key.code;
    EXPECT_FALSE(isTimerPending()) << key.name << " " << key.code;
    EXPECT_NE(combo->getText(), "Barack") << key.name << " " << key.code;
  }
}

TEST_F(ComboBox, searchesWithTheNeighboursOfThoseKeys) {
  for (const FXint code :
       {33, 31, 0xFF0C, 0xFF0E, 0xFF4F, 0xFF58, 0xFF7F, 0xFF81, 0xFF94, 0xFF9D, 0xFFE0, 0xFFE5, 0xFFE8, 0xFFEB}) {
    combo->setCurrentItem(0);
    letTypingSpeedPass();
    EXPECT_EQ(pressKey(*combo, code, "B"), 1) << code;
    EXPECT_EQ(combo->getText(), "Barack") << code;
  }
}

TEST_F(ComboBox, searchesWithShiftAndTheLocksHeld) {
  EXPECT_EQ(pressKey(*combo, KEY_B, "B", SHIFTMASK | CAPSLOCKMASK | NUMLOCKMASK), 1);
  EXPECT_EQ(combo->getText(), "Barack");
}

TEST_F(ComboBox, stepsWithTheArrowKeys) {
  combo->setCurrentItem(1);
  for (const FXint code : {KEY_Down, KEY_KP_Down}) EXPECT_EQ(pressKey(*combo, code), 1);
  EXPECT_EQ(combo->getText(), "Banán");
  for (const FXint code : {KEY_Up, KEY_KP_Up}) EXPECT_EQ(pressKey(*combo, code), 1);
  EXPECT_EQ(combo->getText(), "Alma");
}

TEST_F(ComboBox, answersAsTheToolkitsComboWhereAKeyIsNotForLookup) {
  auto* plain = new FX::FXComboBox(window.get(), 2, nullptr, 0, COMBOBOX_STATIC);
  plain->fillItems(FXString("Alma\nBarack"));
  auto* own = makeCombo(nullptr);
  own->fillItems(FXString("Alma\nBarack"));
  const auto pressIn = [](FX::FXComboBox& box, const RefusedKey& key) {
    box.getFirst()->setFocus();  // its text field
    return pressKey(box, key.code, key.text, key.state);
  };
  const std::vector<RefusedKey> keys = {
      {"Return", KEY_Return, "\r", 0},
      {"space", KEY_space, " ", 0},
      {"page up", KEY_Page_Up, "", 0},
      {"page down", KEY_Page_Down, "", 0},
      {"left", KEY_Left, "", 0},
      {"right", KEY_Right, "", 0},
      {"home", KEY_Home, "", 0},
      {"end", KEY_End, "", 0},
      {"delete", KEY_Delete, "\177", 0},
      {"tab", KEY_Tab, "\t", 0},
      {"escape", KEY_Escape, "\033", 0},
      {"alt x", KEY_x, "x", ALTMASK},
      {"copy", KEY_c, "\003", CONTROLMASK},
      {"f5", KEY_F5, "", 0},
  };
  for (const RefusedKey& key : keys) {
    EXPECT_EQ(pressIn(*own, key), pressIn(*plain, key)) << key.name;
    EXPECT_EQ(own->getText(), plain->getText()) << key.name;
  }
}

TEST_F(ComboBox, findsFromTheTextThatADataTargetShows) {
  FXString value = "Banán";
  FXDataTarget data(value);
  auto* bound = makeCombo(&data);
  bound->setSelector(FXDataTarget::ID_VALUE);
  bound->fillItems(FXString(" \nAlma\nBarack\nBanán\nBab"));
  FXWindow* field = bound->getFirst();
  field->handle(field, FXSEL(SEL_UPDATE, 0), nullptr);
  ASSERT_EQ(bound->getText(), "Banán");
  ASSERT_EQ(bound->getCurrentItem(), 0) << "a data target never reaches the list";

  EXPECT_EQ(pressKey(*bound, KEY_B, "B"), 1);
  EXPECT_EQ(value, "Banán") << "the shown item is the first that is looked at";
  EXPECT_EQ(bound->getCurrentItem(), 3);
}

TEST_F(ComboBox, stepsFromTheTextThatADataTargetShows) {
  FXString value = "Banán";
  FXDataTarget data(value);
  auto* bound = makeCombo(&data);
  bound->setSelector(FXDataTarget::ID_VALUE);
  bound->fillItems(FXString(" \nAlma\nBarack\nBanán\nBab"));
  FXWindow* field = bound->getFirst();
  field->handle(field, FXSEL(SEL_UPDATE, 0), nullptr);

  EXPECT_EQ(pressKey(*bound, KEY_Down), 1);
  EXPECT_EQ(value, "Bab");
  value = "Barack";
  bound->setText(value);
  EXPECT_EQ(pressKey(*bound, KEY_Up), 1);
  EXPECT_EQ(value, "Alma");
}

TEST_F(ComboBox, stepsWithTheWheel) {
  combo->setCurrentItem(1);
  EXPECT_EQ(turnWheel(*combo, -1), 1);
  EXPECT_EQ(combo->getText(), "Barack");
  EXPECT_EQ(turnWheel(*combo, +1), 1);
  EXPECT_EQ(combo->getText(), "Alma");
  EXPECT_THAT(target.take(), ElementsAre("COMMAND 7 Barack", "COMMAND 7 Alma"));
  combo->disable();
  EXPECT_EQ(turnWheel(*combo, -1), 0);
  EXPECT_EQ(combo->getText(), "Alma");
}

TEST_F(ComboBox, stepsWithTheWheelFromTheTextThatADataTargetShows) {
  FXString value = "Banán";
  FXDataTarget data(value);
  auto* bound = makeCombo(&data);
  bound->setSelector(FXDataTarget::ID_VALUE);
  bound->fillItems(FXString(" \nAlma\nBarack\nBanán\nBab"));
  FXWindow* field = bound->getFirst();
  field->handle(field, FXSEL(SEL_UPDATE, 0), nullptr);
  ASSERT_EQ(bound->getCurrentItem(), 0) << "a data target never reaches the list";

  EXPECT_EQ(turnWheel(*bound, -1), 1);
  EXPECT_EQ(value, "Bab");
  value = "Barack";
  bound->setText(value);
  EXPECT_EQ(turnWheel(*bound, +1), 1);
  EXPECT_EQ(value, "Alma");
}

TEST_F(ComboBox, leavesTheWheelToTheBaseClassWithoutAList) {
  static FXObject* made = nullptr;  // kept for good: the toolkit cannot delete a widget that has no parent
  made = FXExt::FXComboBox::metaClass.makeInstance();
  EXPECT_EQ(made->handle(nullptr, FXSEL(SEL_MOUSEWHEEL, FXExt::FXComboBox::ID_TEXT), nullptr), 0);
}

TEST_F(ComboBox, leavesSpaceAndReturnToItsEditableField) {
  auto* editable = new FXExt::FXComboBox(window.get(), 10, &target, kMessage, COMBOBOX_NORMAL);
  editable->fillItems(FXString("Alma\nAlma fa"));
  auto* field = static_cast<FXTextField*>(editable->getFirst());
  field->setFocus();
  field->setCursorPos(4);
  target.take();
  EXPECT_EQ(pressKey(*editable, KEY_space, " "), 1);
  EXPECT_EQ(editable->getText(), "Alma ");
  EXPECT_EQ(editable->getLookup(), "");
  target.take();
  EXPECT_EQ(pressKey(*editable, KEY_Return, "\r"), 1);
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 65293", "COMMAND 7 Alma "));
  EXPECT_EQ(editable->getLookup(), "");
}

TEST_F(ComboBox, reachesTheListsCurrentItemFromATextThatIsNoChoice) {
  combo->setCurrentItem(1);
  combo->setText("körte");
  EXPECT_EQ(type("A"), 1);
  EXPECT_EQ(combo->getText(), "Alma");
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 65", "COMMAND 7 Alma"));
}

TEST_F(ComboBox, leavesATextThatIsNoChoiceWhenNothingIsFound) {
  combo->setText("körte");
  type("x");
  EXPECT_EQ(combo->getText(), "körte");
  EXPECT_THAT(target.take(), ElementsAre("KEYPRESS 7 120"));
}

TEST_F(ComboBox, stepsFromTheCurrentOneOfEqualItems) {
  combo->clearItems();
  combo->fillItems(FXString("Alma\nBarack\nAlma\nBanán"));
  combo->setCurrentItem(2);
  pressKey(*combo, KEY_Down);
  EXPECT_EQ(combo->getText(), "Banán");
}

TEST_F(ComboBox, removesTheTimerWhenItIsDetached) {
  type("B");
  ASSERT_TRUE(isTimerPending());
  combo->detach();
  EXPECT_FALSE(isTimerPending());
}

TEST_F(ComboBox, removesTheTimerWhenItIsDestroyed) {
  type("B");
  ASSERT_TRUE(isTimerPending());
  combo->destroy();
  EXPECT_FALSE(isTimerPending());
}

TEST_F(ComboBox, removesTheTimerWhenItIsDeleted) {
  type("B");
  ASSERT_TRUE(isTimerPending());
  FXObject* gone = combo;
  delete combo;
  EXPECT_FALSE(toolkitApplication().hasTimeout(gone, kTimer));
}

}  // namespace
