// The dual list: how it is laid out, and how items move between its lists and within the right one.
#include "fxext/FXDualList.h"

using namespace FX;

namespace FXExt {

FXDEFMAP(FXDualList)
FXDualListMap[] = {
    FXMAPFUNC(SEL_DOUBLECLICKED, FXDualList::ID_FROMLIST, FXDualList::onCmdMakeSelected),
    FXMAPFUNC(SEL_DOUBLECLICKED, FXDualList::ID_TOLIST, FXDualList::onCmdMakeUnSelected),
    FXMAPFUNC(SEL_COMMAND, FXDualList::ID_MAKESELECTED, FXDualList::onCmdMakeSelected),
    FXMAPFUNC(SEL_COMMAND, FXDualList::ID_MAKEUNSELECTED, FXDualList::onCmdMakeUnSelected),
    FXMAPFUNC(SEL_COMMAND, FXDualList::ID_MOVEUP, FXDualList::onCmdMoveUp),
    FXMAPFUNC(SEL_COMMAND, FXDualList::ID_MOVEDOWN, FXDualList::onCmdMoveDown),
};
static_assert(ARRAYNUMBER(FXDualListMap) == 6, "two lists and four arrows");

FXIMPLEMENT(FXDualList, FXHorizontalFrame, FXDualListMap, ARRAYNUMBER(FXDualListMap))

namespace {

constexpr FXint kSpacing = 4;
constexpr FXint kColumnSpacing = 2;
constexpr FXint kTitlePadding = 2;
constexpr FXint kArrowPadding = 2;
constexpr FXint kArrowSize = 10;

constexpr FXuint kFillOptions = LAYOUT_FILL_X | LAYOUT_FILL_Y;
static_assert(kFillOptions == 3072, "fills its width and height");

constexpr FXuint kListFrameOptions = FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y;
static_assert(kListFrameOptions == 0x5C00, "sunken, thick, fills its width and height");

constexpr FXuint kButtonColumnOptions = LAYOUT_FILL_Y;
static_assert(kButtonColumnOptions == 2048, "fills its height");

constexpr FXuint kTitleOptions = LABEL_NORMAL;
static_assert(kTitleOptions == 0x100000, "text after the icon");

constexpr FXuint kRightArrowOptions = FRAME_RAISED | FRAME_THICK | ARROW_RIGHT;
constexpr FXuint kLeftArrowOptions = FRAME_RAISED | FRAME_THICK | ARROW_LEFT;
constexpr FXuint kUpArrowOptions = FRAME_RAISED | FRAME_THICK | ARROW_UP;
constexpr FXuint kDownArrowOptions = FRAME_RAISED | FRAME_THICK | ARROW_DOWN;
static_assert(kRightArrowOptions == 0x406000 && kLeftArrowOptions == 0x206000, "raised, thick, to the sides");
static_assert(kUpArrowOptions == 0x86000 && kDownArrowOptions == 0x106000, "raised, thick, up and down");

/// The toolkit's arrow does not show that it has the keyboard.
class Arrow : public FXArrowButton {
 public:
  using FXArrowButton::FXArrowButton;

  void setFocus() override {
    FXArrowButton::setFocus();
    setBackColor(getApp()->getHiliteColor());
  }

  void killFocus() override {
    FXArrowButton::killFocus();
    setBackColor(getApp()->getBaseColor());
  }
};

/// Makes a column with its title. Returns the row below the title, for the list and its buttons.
FXComposite* createColumn(FXComposite* container, const FXString& title) {
  auto* column = new FXVerticalFrame(container, kFillOptions, 0, 0, 0, 0, 0, 0, 0, 0, kColumnSpacing, kColumnSpacing);
  new FXLabel(column, title, nullptr, kTitleOptions, 0, 0, 0, 0, kTitlePadding, kTitlePadding, kTitlePadding,
              kTitlePadding);
  return new FXHorizontalFrame(column, kFillOptions, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

/// Makes a list in a sunken frame of its own, which has the spacing.
FXList* createList(FXComposite* row, FXObject* receiver, FXSelector selector, FXint spacing) {
  auto* frame = new FXVerticalFrame(row, kListFrameOptions, 0, 0, 0, 0, 0, 0, 0, 0, spacing, spacing);
  return new FXList(frame, receiver, selector, kFillOptions);
}

FXComposite* createButtonColumn(FXComposite* row) {
  return new FXVerticalFrame(row, kButtonColumnOptions, 0, 0, 0, 0, kSpacing, kSpacing, kSpacing, kSpacing, kSpacing,
                             kSpacing);
}

void createArrow(FXComposite* column, FXObject* receiver, FXSelector selector, FXuint opts) {
  auto* arrow = new Arrow(column, receiver, selector, opts, 0, 0, 0, 0, kArrowPadding, kArrowPadding, kArrowPadding,
                          kArrowPadding);
  arrow->setArrowSize(kArrowSize);
}

// Walks backwards and inserts at one place, so that the moved items keep their order.
//
// On purpose: an item arrives anew, selected and with nothing else of its former state, not even if it was disabled.
void moveSelected(FXList* source, FXList* destination) {
  const FXint end = destination->getNumItems();
  for (FXint index = source->getNumItems() - 1; index >= 0; --index) {
    if (!source->isItemSelected(index)) continue;
    auto* moved = new FXListItem(source->getItemText(index), source->getItemIcon(index), source->getItemData(index));
    moved->setSelected(TRUE);
    destination->insertItem(end, moved, FALSE);
    source->removeItem(index, FALSE);
  }
}

}  // namespace

FXDualList::FXDualList(FXComposite* container, const FXString& fromTitle, const FXString& toTitle, FXuint opts)
    : FXHorizontalFrame(container, opts, 0, 0, 0, 0, kSpacing, kSpacing, kSpacing, kSpacing, kSpacing, kSpacing) {
  createFromColumn(fromTitle);
  createToColumn(toTitle);
}

FXDualList::FXDualList() : fromList(nullptr), toList(nullptr) {}

void FXDualList::createFromColumn(const FXString& title) {
  FXComposite* row = createColumn(this, title);
  fromList = createList(row, this, ID_FROMLIST, 0);
  FXComposite* buttons = createButtonColumn(row);
  createArrow(buttons, this, ID_MAKESELECTED, kRightArrowOptions);
  createArrow(buttons, this, ID_MAKEUNSELECTED, kLeftArrowOptions);
}

void FXDualList::createToColumn(const FXString& title) {
  FXComposite* row = createColumn(this, title);
  toList = createList(row, this, ID_TOLIST, kSpacing);
  FXComposite* buttons = createButtonColumn(row);
  createArrow(buttons, this, ID_MOVEUP, kUpArrowOptions);
  createArrow(buttons, this, ID_MOVEDOWN, kDownArrowOptions);
}

FXint FXDualList::appendFromListItem(const FXString& text, FXIcon* icon, void* itemData) {
  return fromList->appendItem(text, icon, itemData, FALSE);
}

FXint FXDualList::appendToListItem(const FXString& text, FXIcon* icon, void* itemData) {
  return toList->appendItem(text, icon, itemData, FALSE);
}

long FXDualList::onCmdMakeSelected(FXObject*, FXSelector, void*) {
  moveSelected(fromList, toList);
  return 1;
}

long FXDualList::onCmdMakeUnSelected(FXObject*, FXSelector, void*) {
  moveSelected(toList, fromList);
  return 1;
}

// On purpose: the neighbour's selection is not looked at. A selected item at the top stays, and a selected one below it
// changes places with it: [A*, B*, C] becomes [B*, A*, C].
long FXDualList::onCmdMoveUp(FXObject*, FXSelector, void*) {
  for (FXint index = 1; index < toList->getNumItems(); ++index) {
    if (toList->isItemSelected(index)) toList->moveItem(index - 1, index, FALSE);
  }
  return 1;
}

// On purpose: as upwards, [A, B*, C*] becomes [A, C*, B*].
long FXDualList::onCmdMoveDown(FXObject*, FXSelector, void*) {
  for (FXint index = toList->getNumItems() - 2; index >= 0; --index) {
    if (toList->isItemSelected(index)) toList->moveItem(index + 1, index, FALSE);
  }
  return 1;
}

}  // namespace FXExt
