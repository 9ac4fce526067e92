// The look-up of the type-ahead combo box: which keys it takes, and how a typed prefix finds an item.
#include "fxext/FXComboBox.h"

#include <fxkeys.h>

using namespace FX;

FXDEFMAP(FXExt::FXComboBox)
FXComboBoxMap[] = {
    FXMAPFUNC(SEL_KEYPRESS, 0, FXExt::FXComboBox::onKeyPress),
    FXMAPFUNC(SEL_TIMEOUT, FXExt::FXComboBox::ID_LOOKUPTIMER, FXExt::FXComboBox::onLookupTimer),
};
static_assert(ARRAYNUMBER(FXComboBoxMap) == 2, "the key and its timer");

FXObject* FXExt::FXComboBox::manufacture() { return new FXExt::FXComboBox; }

const FXMetaClass FXExt::FXComboBox::metaClass("FXExt::FXComboBox", FXExt::FXComboBox::manufacture,
                                               &FX::FXComboBox::metaClass, FXComboBoxMap, ARRAYNUMBER(FXComboBoxMap),
                                               sizeof(FXExt::FXComboBox::FXMapEntry));

// What FXIMPLEMENT writes, and before it the wheel: over the text field it steps through the list as the arrow keys do,
// but its message is the base class's alone, and from the wrong place a notch would choose the wrong item.
long FXExt::FXComboBox::handle(FXObject* sender, FXSelector sel, void* ptr) {
  if (sel == FXSEL(SEL_MOUSEWHEEL, ID_TEXT) && list) followShownText();
  const auto* entry = static_cast<const FXMapEntry*>(metaClass.search(sel));
  return entry ? (this->*entry->func)(sender, sel, ptr) : FX::FXComboBox::handle(sender, sel, ptr);
}

namespace FXExt {

namespace {

constexpr FXuint kLookupFlags = SEARCH_WRAP | SEARCH_PREFIX | SEARCH_FORWARD;
static_assert(kLookupFlags == 18, "wrap around, prefix match, forward, case-sensitive");

constexpr bool isWithin(FXint code, FXint first, FXint last) { return first <= code && code <= last; }

// Keys with a meaning of their own, whatever text they carry.
constexpr bool isNeverLookup(FXint code) {
  return code == KEY_space || code == KEY_Return || isWithin(code, KEY_Home, KEY_End) || code == KEY_KP_Space ||
         isWithin(code, KEY_KP_Home, KEY_KP_End) || isWithin(code, KEY_Shift_L, KEY_Control_R) ||
         isWithin(code, KEY_Alt_L, KEY_Alt_R);
}
static_assert(KEY_Home == 0xFF50 && KEY_End == 0xFF57, "the cursor block");
static_assert(KEY_KP_Home == 0xFF95 && KEY_KP_End == 0xFF9C, "the cursor block of the keypad");
static_assert(KEY_Shift_L == 0xFFE1 && KEY_Control_R == 0xFFE4, "shift and control, left and right");
static_assert(KEY_Alt_L == 0xFFE9 && KEY_Alt_R == 0xFFEA, "alt, left and right");

constexpr bool isStep(FXint code) {
  return code == KEY_Up || code == KEY_Down || code == KEY_KP_Up || code == KEY_KP_Down;
}

bool isLookup(const FXEvent& event) {
  if (isNeverLookup(event.code) || (event.state & (CONTROLMASK | ALTMASK))) return false;
  // The first byte decides, also of a character of several bytes: unsigned, it is above 31 and printable.
  const FXuchar first = event.text.empty() ? 0 : static_cast<FXuchar>(event.text[0]);
  return first > 31 && Unicode::isPrint(first);
}

}  // namespace

FXComboBox::FXComboBox(FXComposite* container, FXint columns, FXObject* receiver, FXSelector selector, FXuint opts,
                       FXint x, FXint y, FXint w, FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FX::FXComboBox(container, columns, receiver, selector, opts, x, y, w, h, pl, pr, pt, pb) {}

FXComboBox::FXComboBox() {
  field = nullptr;
  button = nullptr;
  list = nullptr;
  pane = nullptr;
}

FXComboBox::~FXComboBox() { removeLookupTimer(); }

void FXComboBox::detach() {
  removeLookupTimer();
  FX::FXComboBox::detach();
}

void FXComboBox::destroy() {
  removeLookupTimer();
  FX::FXComboBox::destroy();
}

long FXComboBox::onKeyPress(FXObject* sender, FXSelector sel, void* ptr) {
  const auto& event = *static_cast<const FXEvent*>(ptr);
  if (!isEnabled()) return 0;
  if (target && target->tryHandle(this, FXSEL(SEL_KEYPRESS, message), ptr)) return 1;
  if (!isLookup(event)) {
    // The combo box gets the key before its parts do, so the key's usual meaning is the base class's to give.
    if (list && isStep(event.code)) followShownText();
    return FX::FXComboBox::onKeyPress(sender, sel, ptr);
  }
  lookup += event.text;
  getApp()->addTimeout(this, ID_LOOKUPTIMER, getApp()->getTypingSpeed());
  if (!list) return 1;
  followShownText();
  const FXint index = findItem(lookup, getCurrentItem(), kLookupFlags);
  if (index < 0) {
    lookup.clear();
    return 1;
  }
  makeCurrent(index);
  return 1;
}

long FXComboBox::onLookupTimer(FXObject*, FXSelector, void*) {
  lookup.clear();
  return 1;
}

void FXComboBox::removeLookupTimer() { getApp()->removeTimeout(this, ID_LOOKUPTIMER); }

// A data target sets the text alone, so the list's current item may be another one, or the text may be no item at all.
// Then the base class would step from the wrong place, or take the found item for the current one and tell nobody.
void FXComboBox::followShownText() {
  const FXint current = getCurrentItem();
  if (current >= 0 && getItemText(current) == getText()) return;
  const FXint shown = findItem(getText());
  if (shown < 0) list->killSelection();
  list->setCurrentItem(shown);
}

void FXComboBox::makeCurrent(FXint index) {
  list->makeItemVisible(index);
  list->killSelection(TRUE);
  list->selectItem(index, TRUE);
  list->setAnchorItem(index);
  setCurrentItem(index, TRUE);
}

}  // namespace FXExt
