// One day of the calendar's grid.
#pragma once

#include <fx.h>

namespace FXExt {

class FXDatePickerHoliday;

/// A cell of the calendar: a day of the month, or nothing. A press on it is sent to its target as SEL_LEFTBUTTONPRESS
/// with its message id and no data.
///
/// The target and the message id are the cell's own; those of the window underneath stay empty.
class FXDatePickerLabel : public FX::FXLabel {
  FXDECLARE(FXDatePickerLabel)
 public:
  /// An empty cell; its one space replaces the label's `text`. Neither the receiver nor the icon is owned.
  FXDatePickerLabel(FX::FXComposite* container, FX::FXObject* receiver, FX::FXSelector selector,
                    const FX::FXString& text, FX::FXIcon* picture = nullptr, FX::FXuint opts = FX::LABEL_NORMAL,
                    FX::FXint x = 0, FX::FXint y = 0, FX::FXint w = 0, FX::FXint h = 0, FX::FXint pl = FX::DEFAULT_PAD,
                    FX::FXint pr = FX::DEFAULT_PAD, FX::FXint pt = FX::DEFAULT_PAD, FX::FXint pb = FX::DEFAULT_PAD);

  ~FXDatePickerLabel() override = default;

  /// Empties the cell; its colours stay.
  void reset();

  /// Shows the day of `date`. The holiday object is not kept and may be null.
  void init(FX::FXDate date, FX::FXDate today, FXDatePickerHoliday* holiday);

  /// Marks the cell as the chosen one.
  void select();

  /// Gives the cell the colours of its day: a holiday's win over a weekend's.
  void deselect();

  /// The day of the month, -1 when empty.
  int getDay() const { return day; }

  bool showsDay() const { return isValid; }
  bool showsToday() const { return isToday; }
  bool showsHoliday() const { return isHoliday; }
  bool showsWeekend() const { return isWeekend; }
  bool showsSelection() const { return isSelected; }

  FX::FXColor getHolidayTextColor() const { return holidayTextColor; }

  long onLeftBtnPress(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onClick(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onPaint(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  FXDatePickerLabel();

 private:
  FX::FXuint messageId;  // what the target is sent
  FX::FXObject* target;  // the picker; not owned
  FX::FXint day;         // day of the month, -1 when empty
  FX::FXuchar isToday;
  FX::FXuchar isHoliday;
  FX::FXuchar isWeekend;
  FX::FXuchar isSelected;
  FX::FXuchar isValid;           // 1 while the cell shows a day
  FX::FXColor selBackColor;      // background of the chosen day
  FX::FXColor selTextColor;      // text of the chosen day
  FX::FXColor holidayTextColor;  // text of a holiday
  FX::FXColor weekendTextColor;  // text of a Saturday or Sunday

  FXDatePickerLabel(const FXDatePickerLabel&) = delete;
  FXDatePickerLabel& operator=(const FXDatePickerLabel&) = delete;
};

}  // namespace FXExt
