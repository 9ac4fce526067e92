// The date input, and how text, calendar and target are kept in step.
//
//  1. The target knows what the user entered: keys tell it at once, a day when it is accepted, and what came without a
//     key is marked `untold` until it is told. Nothing entered is overwritten before the target knows it.
//  2. What the calendar only previews under the arrow keys is never told. When the pane closes without acceptance the
//     field asks the target for its text again, as soon as the field does not have the focus.
//  3. The pane is a child of the root window, so nobody but the input deletes it.
#include "fxext/FXDateInput.h"

#include <fxkeys.h>

#include <cstdio>

#include "fxext/FXDatePicker.h"

using namespace FX;

namespace FXExt {

FXDEFMAP(FXDateInput)
FXDateInputMap[] = {
    FXMAPFUNC(SEL_LEFTBUTTONPRESS, FXDateInput::ID_PICKER, FXDateInput::onDateSelected),
    FXMAPFUNC(SEL_CHANGED, FXDateInput::ID_TEXTFIELD, FXDateInput::onDateEntered),
    FXMAPFUNC(SEL_UPDATE, FXDateInput::ID_TEXTFIELD, FXDateInput::onUpdate),
    FXMAPFUNC(SEL_KEYPRESS, FXDateInput::ID_TEXTFIELD, FXDateInput::onKeyPress),
    FXMAPFUNC(SEL_KEYRELEASE, FXDateInput::ID_TEXTFIELD, FXDateInput::onKeyReleased),
    FXMAPFUNC(SEL_KEYPRESS, FXDateInput::ID_DROPBUTTON, FXDateInput::onPaneKeyPress),
    FXMAPFUNC(SEL_FOCUS_SELF, 0, FXDateInput::onFocusSelf),
    FXMAPFUNC(SEL_FOCUSOUT, 0, FXDateInput::onFocusOut),
    FXMAPFUNC(SEL_COMMAND, FXDateInput::ID_SETSTRINGVALUE, FXDateInput::onCmdSetStringValue),
    FXMAPFUNC(SEL_COMMAND, FXDateInput::ID_GETSTRINGVALUE, FXDateInput::onCmdGetStringValue),
};
static_assert(ARRAYNUMBER(FXDateInputMap) == 10, "picker, field, button, focus and data target");

FXIMPLEMENT(FXDateInput, FXPacker, FXDateInputMap, ARRAYNUMBER(FXDateInputMap))

namespace {

constexpr FXint kColumns = 10;  // "2024.05.06"

constexpr FXuint kPaneOptions = FRAME_LINE;
static_assert(kPaneOptions == 0x3000, "line frame");

constexpr FXuint kDropButtonOptions = MENUBUTTON_ATTACH_RIGHT | FRAME_RAISED | FRAME_THICK;
static_assert(kDropButtonOptions == 0x20006000, "pane at the right edge, raised, thick");

static_assert(FXWindow::ID_SETSTRINGVALUE == 21 && FXWindow::ID_GETSTRINGVALUE == 27, "the data target's messages");

}  // namespace

FXDateInput::FXDateInput(FXComposite* container, FXDatePickerHoliday* holidays, FXObject* receiver, FXSelector selector,
                         FXuint opts, FXint x, FXint y, FXint w, FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FXPacker(container, opts, x, y, w, h, 0, 0, 0, 0, 0, 0), enabled(1), inSetFocus(0), untold(0) {
  flags |= FLAG_ENABLED;
  target = receiver;
  message = selector;
  textField = new FXTextField(this, kColumns, this, ID_TEXTFIELD, 0, 0, 0, 0, 0, pl, pr, pt, pb);
  pane = new FXPopup(this, kPaneOptions);
  picker = new FXDatePicker(pane, holidays, this, ID_PICKER, 0, 0, 0, 0, 0, 2, 2, 2, 2);
  dropButton = new FXMenuButton(this, FXString::null, nullptr, pane, kDropButtonOptions, 0, 0, 0, 0, 0, 0, 0, 0);
  dropButton->setTarget(this);
  dropButton->setSelector(ID_DROPBUTTON);
  dropButton->setXOffset(border);
  dropButton->setYOffset(border);
  flags &= ~FLAG_UPDATE;  // the field asks the target, and only while it is not being edited
}

FXDateInput::FXDateInput()
    : picker(nullptr), textField(nullptr), pane(nullptr), dropButton(nullptr), enabled(0), inSetFocus(0), untold(0) {}

FXDateInput::~FXDateInput() { delete pane; }

void FXDateInput::create() {
  FXPacker::create();
  pane->create();
}

FXint FXDateInput::getDefaultHeight() {
  return FXMAX(textField->getDefaultHeight(), dropButton->getDefaultHeight()) + 2 * border;
}

// The field asks its parent for the focus first, which comes back here.
void FXDateInput::setFocus() {
  if (inSetFocus) {
    FXPacker::setFocus();
    return;
  }
  inSetFocus = 1;
  textField->setFocus();
  inSetFocus = 0;
}

void FXDateInput::enable() {
  FXPacker::enable();
  textField->enable();
  dropButton->show();
  enabled = 1;
  layout();
}

void FXDateInput::disable() {
  FXPacker::disable();
  closePane();  // with the focus elsewhere nothing else would, and its keys and days would still be taken
  textField->disable();
  dropButton->hide();
  enabled = 0;
  layout();
}

void FXDateInput::layout() {
  const FXint buttonWidth = dropButton->getDefaultWidth();
  const FXint fieldWidth = width - buttonWidth - 2 * border;
  const FXint innerHeight = height - 2 * border;
  textField->position(border, border, fieldWidth, innerHeight);
  dropButton->position(border + fieldWidth, border, buttonWidth, innerHeight);
  flags &= ~FLAG_DIRTY;
}

FXString FXDateInput::getValue(char) const { return textField->getText(); }

void FXDateInput::setValue(FXString text, FXuchar notify) {
  text.substitute('-', '.');
  textField->setText(text);
  untold = 0;
  if (notify) tellTarget();
  selectEnteredDate();
}

void FXDateInput::setDate(FXDate date) {
  textField->setText(FXStringFormat("%04d.%02d.%02d", date.year(), date.month(), date.day()));
  untold = 0;
}

bool FXDateInput::isPaneShown() const { return pane->shown(); }

void FXDateInput::tellTarget() {
  untold = 0;
  const FXString text = textField->getText();
  if (target) target->tryHandle(this, FXSEL(SEL_CHANGED, message), const_cast<FXchar*>(text.text()));
}

void FXDateInput::tellUntold() {
  if (untold) tellTarget();
}

// On purpose: a month above 13 counts as December while 13 itself is no month, and the day is not checked against the
// month's length, so that 30 February goes on as 1 March.
void FXDateInput::selectEnteredDate() {
  FXint year = 0;
  FXint month = 0;
  FXint day = 0;
  if (std::sscanf(textField->getText().text(), "%04d.%02d.%02d", &year, &month, &day) < 3) return;
  if (month > 13) month = 12;
  if (year < 1 || year > 2999 || month < 1 || month > 12 || day < 1 || day > 31) return;
  picker->setSelectedDate(FXDate(year, month, day));
}

// A click on the button gives the focus to the field and then takes it without a word, and the field would go on as if
// it were being edited. The end of its focus lets it ask the target for its text again.
void FXDateInput::releaseField() {
  if (getFocus() != textField) textField->killFocus();
}

void FXDateInput::moveTo(const FXDate& date) {
  if (date.year() < 1) return;  // cannot be written
  tellUntold();
  releaseField();
  picker->setSelectedDate(date);
  setDate(date);
}

void FXDateInput::closePane() {
  dropButton->handle(this, FXSEL(SEL_COMMAND, ID_UNPOST), nullptr);
  pane->hide();
}

void FXDateInput::accept() {
  closePane();
  setDate(picker->getSelectedDate());
  tellTarget();
}

long FXDateInput::onDateSelected(FXObject*, FXSelector, void*) {
  accept();
  return 1;
}

long FXDateInput::onDateEntered(FXObject*, FXSelector, void*) {
  untold = 1;
  selectEnteredDate();
  return 1;
}

long FXDateInput::onUpdate(FXObject*, FXSelector, void*) {
  if (!target || isPaneShown()) return 0;
  tellUntold();  // else the target's answer would overwrite it
  return target->tryHandle(this, FXSEL(SEL_UPDATE, message), nullptr) != 0;
}

// On purpose: called before the field takes the key, so the target is told the text before it.
long FXDateInput::onKeyPress(FXObject*, FXSelector, void*) {
  tellTarget();
  return 0;
}

long FXDateInput::onKeyReleased(FXObject*, FXSelector, void*) {
  tellTarget();
  return 1;
}

long FXDateInput::onPaneKeyPress(FXObject*, FXSelector, void* ptr) {
  if (!isPaneShown()) return 0;  // the button passes its keys on also while the pane is closed
  if (target && target->tryHandle(this, FXSEL(SEL_KEYPRESS, message), ptr)) return 1;
  const FXDate date = picker->getSelectedDate();
  switch (static_cast<const FXEvent*>(ptr)->code) {
    case KEY_Left:
    case KEY_KP_Left:
      moveTo(date + -1);
      return 1;
    case KEY_Right:
    case KEY_KP_Right:
      moveTo(date + 1);
      return 1;
    case KEY_Up:
    case KEY_KP_Up:
      moveTo(date + -7);
      return 1;
    case KEY_Down:
    case KEY_KP_Down:
      moveTo(date + 7);
      return 1;
    case KEY_Page_Up:
    case KEY_KP_Page_Up:
      moveTo(FXDatePicker::getDateInPreviousMonth(date));
      return 1;
    case KEY_Page_Down:
    case KEY_KP_Page_Down:
      moveTo(FXDatePicker::getDateInNextMonth(date));
      return 1;
    case KEY_Return:
    case KEY_KP_Enter:
    case KEY_ISO_Enter:
      accept();
      textField->setFocus();
      return 1;
    default:
      return 0;
  }
}

long FXDateInput::onFocusSelf(FXObject* sender, FXSelector, void* ptr) {
  return textField->handle(sender, FXSEL(SEL_FOCUS_SELF, 0), ptr);
}

long FXDateInput::onFocusOut(FXObject* sender, FXSelector sel, void* ptr) {
  tellUntold();
  textField->onFocusOut(sender, sel, ptr);
  FXPacker::onFocusOut(sender, sel, ptr);
  releaseField();
  return 1;
}

long FXDateInput::onCmdSetStringValue(FXObject*, FXSelector, void* ptr) {
  if (!isPaneShown()) setValue(*static_cast<const FXString*>(ptr), 0);
  return 1;
}

long FXDateInput::onCmdGetStringValue(FXObject*, FXSelector, void* ptr) {
  *static_cast<FXString*>(ptr) = textField->getText();
  return 1;
}

}  // namespace FXExt
