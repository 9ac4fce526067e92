// Chooses by the keyboard what the toolkit's own combo box in a table lets one choose by the mouse.
#include "host/windows/ChoiceEditor.h"

#include <fxkeys.h>

#include <algorithm>

#include "host/database/FoldedText.h"

using namespace FX;

namespace Quillane {

FXDEFMAP(ChoiceEditor)
ChoiceEditorMap[] = {
    FXMAPFUNC(SEL_KEYPRESS, 0, ChoiceEditor::onKeyPress),
};
static_assert(ARRAYNUMBER(ChoiceEditorMap) == 1);

FXIMPLEMENT(ChoiceEditor, FXComboBox, ChoiceEditorMap, ARRAYNUMBER(ChoiceEditorMap))

namespace {

constexpr FXint kColumns = 1;  // the cell says how wide it is

constexpr FXuchar kFirstPrintable = 32;

bool isLetter(const FXEvent& key) {
  return !(key.state & (CONTROLMASK | ALTMASK)) && static_cast<FXuchar>(key.text[0]) >= kFirstPrintable;
}

}  // namespace

ChoiceEditor::ChoiceEditor(FXTable* table)
    : FXComboBox(table, kColumns, nullptr, 0, COMBOBOX_STATIC, 0, 0, 0, 0, table->getMarginLeft(),
                 table->getMarginRight(), table->getMarginTop(), table->getMarginBottom()) {
  setFont(table->getFont());
  setBackColor(table->getBackColor());
  setTextColor(table->getTextColor());
  setSelBackColor(table->getSelBackColor());
  setSelTextColor(table->getSelTextColor());
}

// The list opens below the button, which has its place only once the table has put the editor into the cell.
void ChoiceEditor::openList() {
  getParent()->layout();
  layout();
  button->handle(this, FXSEL(SEL_COMMAND, ID_POST), nullptr);
}

void ChoiceEditor::closeList() { button->handle(this, FXSEL(SEL_COMMAND, ID_UNPOST), nullptr); }

long ChoiceEditor::onKeyPress(FXObject* sender, FXSelector selector, void* ptr) {
  const auto& key = *static_cast<FXEvent*>(ptr);
  switch (key.code) {
    case KEY_Return:
    case KEY_KP_Enter:
      return take();
    case KEY_Tab:
    case KEY_ISO_Left_Tab:
      return 0;
    case KEY_Escape:
      if (!isPaneShown()) return 0;
      closeList();
      return 1;
    case KEY_Down:
    case KEY_KP_Down:
      if (key.state & ALTMASK)
        openList();
      else
        goBy(1);
      return 1;
    case KEY_Up:
    case KEY_KP_Up:
      goBy(-1);
      return 1;
    case KEY_Home:
    case KEY_KP_Home:
      goTo(0);
      return 1;
    case KEY_End:
    case KEY_KP_End:
      goTo(getNumItems() - 1);
      return 1;
    default:
      break;
  }
  if (!isLetter(key)) return FXComboBox::onKeyPress(sender, selector, ptr);
  if (key.code != KEY_space || isLookingUp(key))
    lookUp(key);
  else if (isPaneShown())
    closeList();
  else
    openList();
  return 1;
}

void ChoiceEditor::goTo(FXint index) {
  if (0 <= index && index < getNumItems()) setCurrentItem(index);
}

// From no choice the first step leads to the nearest end.
void ChoiceEditor::goBy(FXint steps) {
  const FXint end = getNumItems() - 1;
  const FXint current = getCurrentItem();
  goTo(current < 0 ? (steps > 0 ? 0 : end) : std::clamp(current + steps, 0, end));
}

bool ChoiceEditor::isLookingUp(const FXEvent& key) const {
  return !typed.empty() && key.time - typedAt <= getApp()->getTypingSpeed();
}

// Letters that no choice begins with are taken for a new beginning, so that one letter, pressed again and again, goes
// through all of its choices.
void ChoiceEditor::lookUp(const FXEvent& key) {
  const FXString letter = Database::alphabeticKey(key.text);
  FXint found = -1;
  if (isLookingUp(key)) {
    found = find(typed + letter, getCurrentItem());
    if (found >= 0) typed += letter;
  }
  if (found < 0) {
    typed = letter;
    found = find(typed, getCurrentItem() + 1);
  }
  typedAt = key.time;
  if (found >= 0) {
    goTo(found);
    return;
  }
  typed.clear();
  getApp()->beep();
}

FXint ChoiceEditor::find(const FXString& beginning, FXint start) const {
  const FXint count = getNumItems();
  for (FXint step = 0; step < count; ++step) {
    const FXint index = (std::max(start, 0) + step) % count;
    if (Database::alphabeticKey(getItemText(index)).left(beginning.length()) == beginning) return index;
  }
  return -1;
}

// The editor is gone when the target was told.
long ChoiceEditor::take() {
  closeList();
  if (target) target->tryHandle(this, FXSEL(SEL_COMMAND, message), nullptr);
  return 1;
}

}  // namespace Quillane
