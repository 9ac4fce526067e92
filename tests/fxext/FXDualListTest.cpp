// The dual list: what moves between its lists and within the right one, by messages and without a display.
#include "fxext/FXDualList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/ToolkitApplication.h"

using namespace FX;
using FXExt::FXDualList;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::toolkitApplication;

namespace {

using Texts = std::vector<std::string>;

constexpr FXSelector kFromList = 55;
constexpr FXSelector kToList = 56;
constexpr FXSelector kMakeSelected = 57;
constexpr FXSelector kMakeUnSelected = 58;
constexpr FXSelector kMoveUp = 59;
constexpr FXSelector kMoveDown = 60;
constexpr FXuint kOptions = 3072;

/// The list's items in order, the selected ones with a star.
Texts read(const FXList& list) {
  Texts texts;
  for (FXint index = 0; index < list.getNumItems(); ++index)
    texts.push_back(std::string(list.getItemText(index).text()) + (list.isItemSelected(index) ? "*" : ""));
  return texts;
}

/// Counts what a list tells of items that come, go and change.
class Listener : public FXObject {
 public:
  long handle(FXObject*, FXSelector sel, void*) override {
    const FXuint type = FXSELTYPE(sel);
    if (type == SEL_INSERTED || type == SEL_DELETED || type == SEL_CHANGED) ++heard;
    return 0;
  }
  int heard = 0;
};

class DualList : public testing::Test {
 protected:
  DualList() {
    window = std::make_unique<FXMainWindow>(&toolkitApplication(), "dual list");
    chooser = new FXDualList(window.get(), "Available", "Chosen", kOptions);
    from = chooser->getFromList();
    to = chooser->getToList();
  }

  /// Appends the texts to the list; a star at the end marks an item to be selected.
  void fill(FXList* list, const Texts& texts) {
    for (const std::string& marked : texts) {
      const bool selected = marked.back() == '*';
      const FXString text(marked.data(), static_cast<FXint>(marked.size()) - selected);
      const FXint index = list == from ? chooser->appendFromListItem(text, nullptr, nullptr)
                                       : chooser->appendToListItem(text, nullptr, nullptr);
      if (selected) list->selectItem(index);
    }
  }

  long send(FXuint type, FXSelector id) { return chooser->handle(window.get(), FXSEL(type, id), nullptr); }

  std::unique_ptr<FXMainWindow> window;
  FXDualList* chooser = nullptr;  // these are owned by the window
  FXList* from = nullptr;
  FXList* to = nullptr;
};

template <typename T>
T& childOf(const FXWindow& container, FXint index) {
  T* child = dynamic_cast<T*>(container.childAtIndex(index));
  if (!child) throw std::runtime_error("no such child");
  return *child;
}

struct Paddings {
  FXint left, right, top, bottom, horizontalSpacing, verticalSpacing;
  bool operator==(const Paddings& other) const {
    return left == other.left && right == other.right && top == other.top && bottom == other.bottom &&
           horizontalSpacing == other.horizontalSpacing && verticalSpacing == other.verticalSpacing;
  }
};

Paddings paddingsOf(const FXPacker& packer) {
  return {packer.getPadLeft(),   packer.getPadRight(), packer.getPadTop(),
          packer.getPadBottom(), packer.getHSpacing(), packer.getVSpacing()};
}

/// Compares the frame and the layout; the toolkit has other options of its own.
bool hasOptions(const FXWindow& part, FXuint options) {
  constexpr FXuint kCompared =
      FRAME_RIDGE | LAYOUT_FILL_X | LAYOUT_FILL_Y | LAYOUT_FIX_WIDTH | LAYOUT_FIX_HEIGHT | LAYOUT_FIX_X | LAYOUT_FIX_Y;
  FXuint found = part.getLayoutHints();
  if (const auto* frame = dynamic_cast<const FXFrame*>(&part)) found |= frame->getFrameStyle();
  if (const auto* packer = dynamic_cast<const FXPacker*>(&part)) found |= packer->getFrameStyle();
  return (found & kCompared) == (options & kCompared);
}

struct ExpectedArrow {
  FXuint style;
  FXSelector message;
};

void expectColumn(const FXDualList& chooser, FXint index, const char* title, FXList* list, FXSelector message,
                  FXint listSpacing, const std::vector<ExpectedArrow>& arrows) {
  const auto& column = childOf<FXVerticalFrame>(chooser, index);
  EXPECT_TRUE(hasOptions(column, 3072));
  EXPECT_EQ(paddingsOf(column), (Paddings{0, 0, 0, 0, 2, 2}));
  ASSERT_EQ(column.numChildren(), 2);

  const auto& label = childOf<FXLabel>(column, 0);
  EXPECT_EQ(label.getText(), title);
  EXPECT_TRUE(hasOptions(label, 0));
  EXPECT_EQ(label.getIconPosition() | label.getJustify(), 0x100000u);
  for (const FXint padding : {label.getPadLeft(), label.getPadRight(), label.getPadTop(), label.getPadBottom()})
    EXPECT_EQ(padding, 2);

  const auto& row = childOf<FXHorizontalFrame>(column, 1);
  EXPECT_TRUE(hasOptions(row, 3072));
  EXPECT_EQ(paddingsOf(row), (Paddings{0, 0, 0, 0, 0, 0}));
  ASSERT_EQ(row.numChildren(), 2);

  const auto& frame = childOf<FXPacker>(row, 0);
  EXPECT_TRUE(hasOptions(frame, 0x5C00));
  EXPECT_EQ(paddingsOf(frame), (Paddings{0, 0, 0, 0, listSpacing, listSpacing}));
  ASSERT_EQ(frame.numChildren(), 1);
  EXPECT_EQ(frame.getFirst(), list);
  EXPECT_TRUE(hasOptions(*list, 3072));
  EXPECT_EQ(list->getTarget(), &chooser);
  EXPECT_EQ(list->getSelector(), message);
  EXPECT_EQ(list->getListStyle(), LIST_EXTENDEDSELECT);

  const auto& buttons = childOf<FXVerticalFrame>(row, 1);
  EXPECT_TRUE(hasOptions(buttons, 2048));
  EXPECT_EQ(paddingsOf(buttons), (Paddings{4, 4, 4, 4, 4, 4}));
  ASSERT_EQ(buttons.numChildren(), static_cast<FXint>(arrows.size()));
  for (FXint place = 0; place < buttons.numChildren(); ++place) {
    SCOPED_TRACE(place);
    const ExpectedArrow& expected = arrows[static_cast<std::size_t>(place)];
    const auto& arrow = childOf<FXArrowButton>(buttons, place);
    EXPECT_TRUE(hasOptions(arrow, 0x6000));
    EXPECT_EQ(arrow.getArrowStyle(), expected.style);
    EXPECT_EQ(arrow.getTarget(), &chooser);
    EXPECT_EQ(arrow.getSelector(), expected.message);
    EXPECT_EQ(arrow.getArrowSize(), 10);
    for (const FXint padding : {arrow.getPadLeft(), arrow.getPadRight(), arrow.getPadTop(), arrow.getPadBottom()})
      EXPECT_EQ(padding, 2);
  }
}

TEST_F(DualList, registersUnderItsBareName) {
  EXPECT_STREQ(chooser->getClassName(), "FXDualList");
  EXPECT_EQ(FXDualList::metaClass.getBaseClass(), &FXHorizontalFrame::metaClass);
  EXPECT_EQ(FXMetaClass::getMetaClassFromName("FXDualList"), &FXDualList::metaClass);
}

TEST_F(DualList, isManufacturedByItsMetaClass) {
  static FXObject* made = nullptr;  // kept for good: the toolkit cannot delete a widget that has no parent
  made = FXDualList::metaClass.makeInstance();
  auto* bare = dynamic_cast<FXDualList*>(made);
  ASSERT_NE(bare, nullptr);
  EXPECT_EQ(bare->getFromList(), nullptr);
  EXPECT_EQ(bare->getToList(), nullptr);
}

TEST_F(DualList, hasTheMoveButtonsBetweenItsListsAndTheOrderButtonsOnTheRight) {
  EXPECT_TRUE(hasOptions(*chooser, kOptions));
  EXPECT_EQ(paddingsOf(*chooser), (Paddings{4, 4, 4, 4, 4, 4}));
  ASSERT_EQ(chooser->numChildren(), 2);
  {
    SCOPED_TRACE("left");
    expectColumn(*chooser, 0, "Available", from, kFromList, 0,
                 {{ARROW_RIGHT, kMakeSelected}, {ARROW_LEFT, kMakeUnSelected}});
  }
  {
    SCOPED_TRACE("right");
    expectColumn(*chooser, 1, "Chosen", to, kToList, 4, {{ARROW_UP, kMoveUp}, {ARROW_DOWN, kMoveDown}});
  }
}

TEST_F(DualList, takesItsOptionsFromItsMaker) {
  const FXDualList* framed = new FXDualList(window.get(), "", "", FRAME_LINE | LAYOUT_FILL_X);
  EXPECT_TRUE(hasOptions(*framed, FRAME_LINE | LAYOUT_FILL_X));
  EXPECT_EQ(framed->getX() + framed->getY(), 0);
}

TEST_F(DualList, appendsItemsInOrderAndTellsTheirIndex) {
  FXIcon icon(&toolkitApplication());
  int first = 0;
  int second = 0;
  EXPECT_EQ(chooser->appendFromListItem("Alma", &icon, &first), 0);
  EXPECT_EQ(chooser->appendFromListItem("Barack", nullptr, &second), 1);
  EXPECT_EQ(chooser->appendToListItem("Dinnye", &icon, &second), 0);
  EXPECT_EQ(chooser->appendToListItem("Eper", nullptr, nullptr), 1);
  EXPECT_THAT(read(*from), ElementsAre("Alma", "Barack"));
  EXPECT_THAT(read(*to), ElementsAre("Dinnye", "Eper"));
  EXPECT_EQ(from->getItemIcon(0), &icon);
  EXPECT_EQ(from->getItemData(0), &first);
  EXPECT_EQ(from->getItemIcon(1), nullptr);
  EXPECT_EQ(from->getItemData(1), &second);
  EXPECT_EQ(to->getItemIcon(0), &icon);
  EXPECT_EQ(to->getItemData(0), &second);
  EXPECT_EQ(to->getItemData(1), nullptr);
}

TEST_F(DualList, answersEachMessageOfItsPartsWithOne) {
  EXPECT_EQ(send(SEL_DOUBLECLICKED, kFromList), 1);
  EXPECT_EQ(send(SEL_DOUBLECLICKED, kToList), 1);
  EXPECT_EQ(send(SEL_COMMAND, kMakeSelected), 1);
  EXPECT_EQ(send(SEL_COMMAND, kMakeUnSelected), 1);
  EXPECT_EQ(send(SEL_COMMAND, kMoveUp), 1);
  EXPECT_EQ(send(SEL_COMMAND, kMoveDown), 1);
}

TEST_F(DualList, leavesOtherMessagesToItsBase) {
  fill(from, {"A*"});
  EXPECT_EQ(send(SEL_COMMAND, kFromList), 0) << "a single click moves nothing";
  EXPECT_EQ(send(SEL_CLICKED, kFromList), 0);
  EXPECT_EQ(send(SEL_TRIPLECLICKED, kToList), 0);
  EXPECT_EQ(send(SEL_DOUBLECLICKED, kMakeSelected), 0);
  EXPECT_EQ(send(SEL_COMMAND, 61), 0);
  EXPECT_THAT(read(*from), ElementsAre("A*"));
  EXPECT_EQ(send(SEL_COMMAND, FXWindow::ID_DISABLE), 1);
  EXPECT_FALSE(chooser->isEnabled());
}

TEST_F(DualList, changesNothingWhenNothingIsSelected) {
  fill(from, {"A", "B"});
  fill(to, {"C", "D"});
  for (const FXSelector command : {kMakeSelected, kMakeUnSelected, kMoveUp, kMoveDown}) {
    send(SEL_COMMAND, command);
    EXPECT_THAT(read(*from), ElementsAre("A", "B")) << command;
    EXPECT_THAT(read(*to), ElementsAre("C", "D")) << command;
  }
}

TEST_F(DualList, worksOnEmptyLists) {
  for (const FXSelector command : {kMakeSelected, kMakeUnSelected, kMoveUp, kMoveDown}) send(SEL_COMMAND, command);
  EXPECT_THAT(read(*from), IsEmpty());
  EXPECT_THAT(read(*to), IsEmpty());
}

TEST_F(DualList, movesTheSecondAndTheFourthItemToTheRightInThatOrder) {
  fill(from, {"A", "B*", "C", "D*", "E"});
  fill(to, {"X", "Y"});
  send(SEL_COMMAND, kMakeSelected);
  EXPECT_THAT(read(*from), ElementsAre("A", "C", "E"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y", "B*", "D*"));
}

TEST_F(DualList, movesToTheLeftAsItMovesToTheRight) {
  fill(from, {"X"});
  fill(to, {"A*", "B", "C*"});
  send(SEL_COMMAND, kMakeUnSelected);
  EXPECT_THAT(read(*from), ElementsAre("X", "A*", "C*"));
  EXPECT_THAT(read(*to), ElementsAre("B"));
}

TEST_F(DualList, movesAllItems) {
  fill(from, {"A*", "B*", "C*"});
  send(SEL_COMMAND, kMakeSelected);
  EXPECT_THAT(read(*from), IsEmpty());
  EXPECT_THAT(read(*to), ElementsAre("A*", "B*", "C*"));
  EXPECT_EQ(from->getCurrentItem(), -1);
}

TEST_F(DualList, keepsTheSelectionThatTheOtherListHad) {
  fill(from, {"A*"});
  fill(to, {"X*", "Y"});
  send(SEL_COMMAND, kMakeSelected);
  EXPECT_THAT(read(*to), ElementsAre("X*", "Y", "A*"));
  send(SEL_COMMAND, kMakeUnSelected);
  EXPECT_THAT(read(*from), ElementsAre("X*", "A*")) << "what was moved is selected and goes back with the rest";
  EXPECT_THAT(read(*to), ElementsAre("Y"));
}

TEST_F(DualList, movesADoubleClickedItemOfTheRightToTheEndOfTheLeft) {
  fill(from, {"X", "Y"});
  fill(to, {"A", "B*", "C"});
  send(SEL_DOUBLECLICKED, kToList);
  EXPECT_THAT(read(*from), ElementsAre("X", "Y", "B*"));
  EXPECT_THAT(read(*to), ElementsAre("A", "C"));
}

TEST_F(DualList, movesADoubleClickedItemWithTheOtherSelectedOnes) {
  fill(from, {"A*", "B", "C*"});
  send(SEL_DOUBLECLICKED, kFromList);
  EXPECT_THAT(read(*from), ElementsAre("B"));
  EXPECT_THAT(read(*to), ElementsAre("A*", "C*"));
}

TEST_F(DualList, movesTextIconAndData) {
  FXIcon icon(&toolkitApplication());
  int data = 0;
  chooser->appendFromListItem("Gyári szám", &icon, &data);
  from->selectItem(0);
  send(SEL_COMMAND, kMakeSelected);
  ASSERT_EQ(to->getNumItems(), 1);
  EXPECT_EQ(to->getItemText(0), "Gyári szám");
  EXPECT_EQ(to->getItemIcon(0), &icon);
  EXPECT_EQ(to->getItemData(0), &data);
  send(SEL_COMMAND, kMakeUnSelected);
  ASSERT_EQ(from->getNumItems(), 1);
  EXPECT_EQ(from->getItemText(0), "Gyári szám");
  EXPECT_EQ(from->getItemIcon(0), &icon);
  EXPECT_EQ(from->getItemData(0), &data);
}

TEST_F(DualList, keepsNothingButTheSelectionOfAnItemsState) {
  fill(from, {"A*"});
  from->getItem(0)->setDraggable(TRUE);
  from->getItem(0)->setEnabled(FALSE);
  send(SEL_COMMAND, kMakeSelected);
  ASSERT_THAT(read(*to), ElementsAre("A*"));
  EXPECT_TRUE(to->getItem(0)->isEnabled());
  EXPECT_FALSE(to->getItem(0)->isDraggable());
  EXPECT_FALSE(to->getItem(0)->hasFocus());
}

TEST_F(DualList, tellsNobodyWhenItemsComeAndMove) {
  Listener listener;
  for (FXList* list : {from, to}) {
    list->setTarget(&listener);
    list->setSelector(7);
  }
  fill(from, {"A*", "B", "C*"});
  fill(to, {"X", "Y*"});
  for (const FXSelector command : {kMakeSelected, kMoveUp, kMoveDown, kMakeUnSelected}) send(SEL_COMMAND, command);
  EXPECT_THAT(read(*from), ElementsAre("B", "Y*", "A*", "C*"));
  EXPECT_THAT(read(*to), ElementsAre("X"));
  EXPECT_EQ(listener.heard, 0);
}

TEST_F(DualList, movesNoItemOfAListOfOneUpOrDown) {
  fill(to, {"A*"});
  send(SEL_COMMAND, kMoveUp);
  EXPECT_THAT(read(*to), ElementsAre("A*"));
  send(SEL_COMMAND, kMoveDown);
  EXPECT_THAT(read(*to), ElementsAre("A*"));
}

TEST_F(DualList, movesOnlyItemsOfTheRightListUpAndDown) {
  fill(from, {"A", "B*", "C"});
  fill(to, {"X", "Y"});
  send(SEL_COMMAND, kMoveUp);
  send(SEL_COMMAND, kMoveDown);
  EXPECT_THAT(read(*from), ElementsAre("A", "B*", "C"));
  EXPECT_THAT(read(*to), ElementsAre("X", "Y"));
}

TEST_F(DualList, movesWithAnItemItsData) {
  int first = 0;
  int second = 0;
  chooser->appendToListItem("A", nullptr, &first);
  chooser->appendToListItem("B", nullptr, &second);
  const FXListItem* moved = to->getItem(1);
  to->selectItem(1);
  send(SEL_COMMAND, kMoveUp);
  EXPECT_EQ(to->getItem(0), moved) << "within a list the item itself moves";
  EXPECT_EQ(to->getItemData(0), &second);
  EXPECT_EQ(to->getItemData(1), &first);
}

TEST_F(DualList, keepsChangingPlacesWithASelectedItemAtTheTop) {
  fill(to, {"A*", "B*", "C"});
  send(SEL_COMMAND, kMoveUp);
  EXPECT_THAT(read(*to), ElementsAre("B*", "A*", "C"));
}

TEST_F(DualList, keepsChangingPlacesWithASelectedItemAtTheBottom) {
  fill(to, {"A", "B*", "C*"});
  send(SEL_COMMAND, kMoveDown);
  EXPECT_THAT(read(*to), ElementsAre("A", "C*", "B*"));
}

TEST_F(DualList, keepsTakingTheFirstItemToTheEndWhenAllGoUp) {
  fill(to, {"A*", "B*", "C*"});
  send(SEL_COMMAND, kMoveUp);
  EXPECT_THAT(read(*to), ElementsAre("B*", "C*", "A*"));
}

TEST_F(DualList, keepsTakingTheLastItemToTheTopWhenAllGoDown) {
  fill(to, {"A*", "B*", "C*"});
  send(SEL_COMMAND, kMoveDown);
  EXPECT_THAT(read(*to), ElementsAre("C*", "A*", "B*"));
}

struct Reordering {
  const char* name;
  FXSelector command;
  Texts before;
  Texts after;
};

void PrintTo(const Reordering& reordering, std::ostream* out) { *out << reordering.name; }

const Reordering kReorderings[] = {
    {"movesOneUp", kMoveUp, {"A", "B", "C*"}, {"A", "C*", "B"}},
    {"movesOneDown", kMoveDown, {"A*", "B", "C"}, {"B", "A*", "C"}},
    {"leavesTheFirstAtTheTop", kMoveUp, {"A*", "B", "C"}, {"A*", "B", "C"}},
    {"leavesTheLastAtTheBottom", kMoveDown, {"A", "B", "C*"}, {"A", "B", "C*"}},
    {"movesNeighboursUpTogether", kMoveUp, {"A", "B*", "C*", "D"}, {"B*", "C*", "A", "D"}},
    {"movesNeighboursDownTogether", kMoveDown, {"A", "B*", "C*", "D"}, {"A", "D", "B*", "C*"}},
    {"movesDistantItemsUp", kMoveUp, {"A", "B*", "C", "D*"}, {"B*", "A", "D*", "C"}},
    {"movesDistantItemsDown", kMoveDown, {"A*", "B", "C*", "D"}, {"B", "A*", "D", "C*"}},
};

class DualListOrder : public DualList, public testing::WithParamInterface<Reordering> {};

TEST_P(DualListOrder, isAsInTheTable) {
  fill(to, GetParam().before);
  send(SEL_COMMAND, GetParam().command);
  EXPECT_EQ(read(*to), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Reordered, DualListOrder, testing::ValuesIn(kReorderings),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
