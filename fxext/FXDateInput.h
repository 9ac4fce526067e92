// A text field for a date, with a calendar to drop down.
#pragma once

#include <fx.h>

namespace FXExt {

class FXDatePicker;
class FXDatePickerHoliday;

/// A date as text, "2024.05.06", to be typed or to be chosen from a calendar that drops down.
///
/// The text goes to the target as SEL_CHANGED with the text's characters as data: at every key pressed (the text before
/// it) and released (the text after it), when a day was accepted in the calendar, and, for text that came without a key
/// (pasted with the mouse), at the latest when the focus leaves. The target is asked for its text by SEL_UPDATE while
/// neither the field is being edited nor the calendar shown. A data target of a text does all this.
///
/// In the calendar the arrow keys move by days and weeks, the page keys by months, and Return accepts.
class FXDateInput : public FX::FXPacker {
  FXDECLARE(FXDateInput)
 public:
  enum {
    ID_PICKER = FX::FXPacker::ID_LAST + 1,
    ID_TEXTFIELD,
    ID_DROPBUTTON,
    ID_LAST,
  };

  /// An empty input; the paddings are those of its text field. Takes ownership of `holidays`, which may be null; the
  /// receiver is not owned.
  FXDateInput(FX::FXComposite* container, FXDatePickerHoliday* holidays, FX::FXObject* receiver = nullptr,
              FX::FXSelector selector = 0, FX::FXuint opts = 0, FX::FXint x = 0, FX::FXint y = 0, FX::FXint w = 0,
              FX::FXint h = 0, FX::FXint pl = FX::DEFAULT_PAD, FX::FXint pr = FX::DEFAULT_PAD,
              FX::FXint pt = FX::DEFAULT_PAD, FX::FXint pb = FX::DEFAULT_PAD);

  ~FXDateInput() override;

  void create() override;
  FX::FXint getDefaultHeight() override;

  /// Gives the focus to the text field.
  void setFocus() override;

  /// Opens the text for editing and shows the drop-down button.
  void enable() override;

  /// Closes the text for editing, hides the drop-down button, and the calendar with it.
  void disable() override;

  void layout() override;

  bool isEnabled() const { return enabled; }

  /// The text as it stands in the field, a date or not. The argument has no meaning.
  FX::FXString getValue(char unused = 0) const;

  /// Shows the text with every "-" as "." and turns the calendar to it when it is a date. Tells the target when
  /// `notify` is not 0.
  void setValue(FX::FXString text, FX::FXuchar notify);

  /// Shows the date as text, telling nobody.
  void setDate(FX::FXDate date);

  /// True while the calendar is dropped down.
  bool isPaneShown() const;

  /// The parts, owned by the input.
  FXDatePicker* getPicker() const { return picker; }
  FX::FXTextField* getTextField() const { return textField; }
  FX::FXPopup* getPane() const { return pane; }
  FX::FXMenuButton* getDropButton() const { return dropButton; }

  long onDateSelected(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onDateEntered(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onUpdate(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onKeyPress(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onKeyReleased(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onPaneKeyPress(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onFocusSelf(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onFocusOut(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdSetStringValue(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdGetStringValue(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  FXDateInput();

 private:
  FXDatePicker* picker;          // the calendar, owned by the pane
  FX::FXTextField* textField;    // owned by the window tree
  FX::FXPopup* pane;             // owned; a child of the root window
  FX::FXMenuButton* dropButton;  // owned by the window tree
  FX::FXuchar enabled;           // 1 while the text may be edited
  FX::FXuchar inSetFocus;        // 1 while the focus is being given to the text field
  FX::FXuchar untold;            // 1 while the field holds a text that was entered and that the target does not know

  void tellTarget();
  void tellUntold();
  void selectEnteredDate();
  void releaseField();
  void moveTo(const FX::FXDate& date);
  void closePane();
  void accept();

  FXDateInput(const FXDateInput&) = delete;
  FXDateInput& operator=(const FXDateInput&) = delete;
};

static_assert(FXDateInput::ID_PICKER == 55 && FXDateInput::ID_TEXTFIELD == 56 && FXDateInput::ID_DROPBUTTON == 57,
              "the numbers that the message map and its senders go by");

}  // namespace FXExt
