// The dual list on a display: items chosen and reordered with real clicks and keys.
#include "fxext/FXDualList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/fxext/WindowFixture.h"

using namespace FX;
using FXExt::FXDualList;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::click;
using TestSupport::isOnScreen;
using TestSupport::runEvents;
using TestSupport::toolkitApplication;
using TestSupport::typeKey;

namespace {

using Texts = std::vector<std::string>;

/// The list's items in order, the selected ones with a star.
Texts read(const FXList& list) {
  Texts texts;
  for (FXint index = 0; index < list.getNumItems(); ++index)
    texts.push_back(std::string(list.getItemText(index).text()) + (list.isItemSelected(index) ? "*" : ""));
  return texts;
}

FXArrowButton* findArrow(FXWindow* container, FXSelector message) {
  for (FXWindow* child = container->getFirst(); child; child = child->getNext()) {
    auto* arrow = dynamic_cast<FXArrowButton*>(child);
    if (arrow && arrow->getSelector() == message) return arrow;
    if (FXArrowButton* found = findArrow(child, message)) return found;
  }
  return nullptr;
}

/// A dual list of five items to choose from and two chosen ones, all with an icon.
class DualListWindow : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    if (HasFatalFailure()) return;
    const std::vector<FXColor> pixels(8 * 8, FXRGB(0, 128, 0));
    icon = std::make_unique<FXIcon>(&toolkitApplication(), pixels.data(), 0, IMAGE_OPAQUE, 8, 8);
    chooser = new FXDualList(form, "Available", "Chosen", LAYOUT_FILL_X | LAYOUT_FILL_Y);
    from = chooser->getFromList();
    to = chooser->getToList();
    for (const char* text : {"A", "B", "C", "D", "E"}) chooser->appendFromListItem(text, icon.get(), nullptr);
    for (const char* text : {"X", "Y"}) chooser->appendToListItem(text, icon.get(), nullptr);
    right = findArrow(chooser, FXDualList::ID_MAKESELECTED);
    left = findArrow(chooser, FXDualList::ID_MAKEUNSELECTED);
    up = findArrow(chooser, FXDualList::ID_MOVEUP);
    down = findArrow(chooser, FXDualList::ID_MOVEDOWN);
    show(from);
    for (const FXArrowButton* arrow : {right, left, up, down}) ASSERT_SOON(isOnScreen(*arrow));
  }

  void TearDown() override {
    WindowTest::TearDown();
    icon.reset();  // after the lists that paint it
  }

  void clickItem(FXList* list, FXint index) {
    constexpr FXint kInset = 4;
    click(*list, 1, kInset, list->getYPosition() + index * list->getItemHeight(index) + kInset);
  }

  void doubleClickItem(FXList* list, FXint index) {
    clickItem(list, index);
    clickItem(list, index);
  }

  /// Keeps the next click from being taken for the second one of a double click.
  void pauseClicks() { runEvents(static_cast<int>(toolkitApplication().getClickSpeed()) + 100); }

  std::unique_ptr<FXIcon> icon;
  FXDualList* chooser = nullptr;  // these are owned by the window
  FXList* from = nullptr;
  FXList* to = nullptr;
  FXArrowButton* right = nullptr;
  FXArrowButton* left = nullptr;
  FXArrowButton* up = nullptr;
  FXArrowButton* down = nullptr;
};

/// Whether the first window ends on the screen before the second one begins.
bool isLeftOf(const FXWindow& first, const FXWindow& second) {
  FXint firstX = 0;
  FXint secondX = 0;
  FXint unused = 0;
  first.translateCoordinatesTo(firstX, unused, first.getRoot(), first.getWidth(), 0);
  second.translateCoordinatesTo(secondX, unused, second.getRoot(), 0, 0);
  return firstX <= secondX;
}

TEST_F(DualListWindow, standsInTheOrderListArrowsListArrows) {
  for (const FXArrowButton* arrow : {right, left}) {
    EXPECT_TRUE(isLeftOf(*from, *arrow));
    EXPECT_TRUE(isLeftOf(*arrow, *to));
  }
  for (const FXArrowButton* arrow : {up, down}) EXPECT_TRUE(isLeftOf(*to, *arrow));
  EXPECT_LT(right->getY(), left->getY());
  EXPECT_LT(up->getY(), down->getY());
  EXPECT_NEAR(from->getWidth(), to->getWidth(), 2) << "both lists get the same room";
}

TEST_F(DualListWindow, movesTheSecondAndTheFourthItemToTheRightByClicks) {
  clickItem(from, 1);
  EXPECT_SOON(from->isItemSelected(1));
  TestSupport::holdKey("Control_L", true);
  clickItem(from, 3);
  TestSupport::holdKey("Control_L", false);
  ASSERT_SOON(from->isItemSelected(3));
  click(*right);
  EXPECT_SOON(to->getNumItems() == 4);
  EXPECT_THAT(read(*from), ElementsAre("A", "C", "E"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y", "B*", "D*"));
  click(*left);
  EXPECT_SOON(to->getNumItems() == 2);
  EXPECT_THAT(read(*from), ElementsAre("A", "C", "E", "B*", "D*"));
}

TEST_F(DualListWindow, movesNothingWhenNothingIsSelected) {
  for (const FXArrowButton* arrow : {right, left, up, down}) click(*arrow);
  runEvents(50);
  EXPECT_THAT(read(*from), ElementsAre("A", "B", "C", "D", "E"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y"));
}

TEST_F(DualListWindow, movesADoubleClickedItemToTheEndOfTheOtherList) {
  doubleClickItem(from, 2);
  EXPECT_SOON(to->getNumItems() == 3);
  EXPECT_THAT(read(*from), ElementsAre("A", "B", "D", "E"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y", "C*"));
  doubleClickItem(to, 0);
  EXPECT_SOON(to->getNumItems() == 2);
  EXPECT_THAT(read(*from), ElementsAre("A", "B", "D", "E", "X*"));
  EXPECT_THAT(read(*to), ElementsAre("Y", "C")) << "the first of the two clicks selects its item alone";
}

TEST_F(DualListWindow, movesTheWholeRangeOfADoubleClickWithShift) {
  clickItem(from, 1);
  ASSERT_SOON(from->isItemSelected(1));
  TestSupport::holdKey("Shift_L", true);
  doubleClickItem(from, 3);
  TestSupport::holdKey("Shift_L", false);
  EXPECT_SOON(to->getNumItems() == 5);
  EXPECT_THAT(read(*from), ElementsAre("A", "E"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y", "B*", "C*", "D*"));
}

TEST_F(DualListWindow, movesNothingByADoubleClickBelowTheItems) {
  clickItem(from, 0);
  ASSERT_SOON(from->isItemSelected(0));
  const FXint below = from->getHeight() - 5;
  click(*from, 1, 5, below);
  click(*from, 1, 5, below);
  EXPECT_SOON(!from->isItemSelected(0));
  EXPECT_THAT(read(*from), ElementsAre("A", "B", "C", "D", "E"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y"));
}

TEST_F(DualListWindow, isEmptiedByDoubleClicks) {
  doubleClickItem(to, 1);
  EXPECT_SOON(to->getNumItems() == 1);
  pauseClicks();
  doubleClickItem(to, 0);
  EXPECT_SOON(to->getNumItems() == 0);
  EXPECT_THAT(read(*from), ElementsAre("A", "B", "C", "D", "E", "Y*", "X*"));
  pauseClicks();
  click(*to);
  for (const FXArrowButton* arrow : {left, up, down}) click(*arrow);
  EXPECT_THAT(read(*to), IsEmpty());
}

TEST_F(DualListWindow, reordersByClicks) {
  clickItem(to, 1);
  ASSERT_SOON(to->isItemSelected(1));
  click(*up);
  EXPECT_SOON(read(*to) == (Texts{"Y*", "X"}));
  click(*up);
  runEvents(50);
  EXPECT_THAT(read(*to), ElementsAre("Y*", "X")) << "already at the top";
  click(*down);
  EXPECT_SOON(read(*to) == (Texts{"X", "Y*"}));
}

TEST_F(DualListWindow, keepsChangingPlacesOfTwoSelectedItemsAtEachClick) {
  clickItem(to, 0);
  TestSupport::holdKey("Shift_L", true);
  clickItem(to, 1);
  TestSupport::holdKey("Shift_L", false);
  ASSERT_SOON(read(*to) == (Texts{"X*", "Y*"}));
  click(*up);
  EXPECT_SOON(read(*to) == (Texts{"Y*", "X*"}));
  click(*down);
  EXPECT_SOON(read(*to) == (Texts{"X*", "Y*"}));
}

TEST_F(DualListWindow, isUsedByKeysAlone) {
  typeKey("Down");
  typeKey("space");
  ASSERT_SOON(read(*from) == (Texts{"A", "B*", "C", "D", "E"}));
  typeKey("Tab");
  ASSERT_SOON(right->hasFocus());
  typeKey("space");
  EXPECT_SOON(read(*to) == (Texts{"X", "Y", "B*"}));
  EXPECT_THAT(read(*from), ElementsAre("A", "C", "D", "E"));
  typeKey("Tab");
  ASSERT_SOON(left->hasFocus());
  typeKey("Tab");
  ASSERT_SOON(to->hasFocus());
  typeKey("Tab");
  ASSERT_SOON(up->hasFocus());
  typeKey("space");
  EXPECT_SOON(read(*to) == (Texts{"X", "B*", "Y"}));
  typeKey("Tab");
  ASSERT_SOON(down->hasFocus());
  typeKey("space");
  EXPECT_SOON(read(*to) == (Texts{"X", "Y", "B*"}));
}

TEST_F(DualListWindow, showsWhichArrowHasTheKeyboard) {
  const FXColor usual = right->getBackColor();
  typeKey("Tab");
  ASSERT_SOON(right->hasFocus());
  EXPECT_NE(right->getBackColor(), usual);
  typeKey("Tab");
  ASSERT_SOON(left->hasFocus());
  EXPECT_EQ(right->getBackColor(), usual);
  EXPECT_NE(left->getBackColor(), usual);
}

TEST_F(DualListWindow, paintsItemsThatCameAfterItWasCreated) {
  chooser->appendFromListItem("F", icon.get(), nullptr);
  chooser->appendToListItem("Z", icon.get(), nullptr);
  runEvents(50);
  doubleClickItem(from, 5);
  EXPECT_SOON(read(*to) == (Texts{"X", "Y", "Z", "F*"}));
  runEvents(50);
}

}  // namespace
