// A calendar of one month.
#pragma once

#include <fx.h>

namespace FXExt {

class FXDatePickerHoliday;
class FXDatePickerLabel;

/// A calendar: the year, the month between two arrows, and six weeks of days, Monday first. Days of other months are
/// not shown. It keeps two dates: the one whose month is displayed, and the chosen one.
///
/// The target receives, with the picker's message id and the address of an FXDate of the picker,
///  - SEL_LEFTBUTTONPRESS (the selected date) when a day was chosen,
///  - SEL_CHANGED (the displayed date) when the arrows, the wheel, the today command, incYear() or decYear() turned to
///    another month or year; a year from the spinner is not told.
///
/// The target and the message id are the picker's own; those of the window underneath stay empty.
class FXDatePicker : public FX::FXVerticalFrame {
  FXDECLARE(FXDatePicker)
 public:
  enum {
    ID_PREV = FX::FXVerticalFrame::ID_LAST + 1,
    ID_NEXT,
    ID_TODAY,
    ID_LABEL,
    ID_YEAR,
    ID_YEARNO,
    ID_LAST,
  };

  /// A calendar of the current month with today chosen. Takes ownership of `holidays`, which may be null; the receiver
  /// is not owned.
  FXDatePicker(FX::FXComposite* container, FXDatePickerHoliday* holidays, FX::FXObject* receiver = nullptr,
               FX::FXSelector selector = 0, FX::FXuint opts = 0, FX::FXint x = 0, FX::FXint y = 0, FX::FXint w = 0,
               FX::FXint h = 0, FX::FXint pl = FX::DEFAULT_SPACING, FX::FXint pr = FX::DEFAULT_SPACING,
               FX::FXint pt = FX::DEFAULT_SPACING, FX::FXint pb = FX::DEFAULT_SPACING);

  ~FXDatePicker() override;

  void create() override;
  void detach() override;

  /// The chosen date.
  FX::FXDate getSelectedDate() const { return selectedDate; }

  /// Chooses the date and shows its month, telling nobody. Returns the date.
  FX::FXDate setSelectedDate(FX::FXDate date);

  /// The date whose month is shown.
  FX::FXDate getDisplayedDate() const { return displayedDate; }

  /// Shows the current month; the chosen date stays.
  void reset();

  /// Fills the header and the grid with the month of the date.
  void fill(const FX::FXDate& date);

  /// Shows the same month of the next year, after 2900 of 1900, and tells the target.
  void incYear();

  /// Shows the same month of the previous year, before 1900 of 2900, and tells the target.
  void decYear();

  /// Puts the year's spinner in the place of its button, with the focus in it.
  void showSpinner();

  /// Puts the year's button back in the place of its spinner.
  void hideSpinner();

  void setMonthBkColor(FX::FXColor color);
  FX::FXColor getMonthBkColor() const { return monthBackColor; }
  void setYearBkColor(FX::FXColor color);
  FX::FXColor getYearBkColor() const { return yearBackColor; }

  /// Only stored: the cells take their colours from the application.
  void setSelectionBkColor(FX::FXColor color) { selectionBackColor = color; }
  FX::FXColor getSelectionBkColor() const { return selectionBackColor; }

  /// The same day of the neighbouring month, or that month's last day when it is shorter. The month before January of
  /// year 1 is that January.
  static FX::FXDate getDateInPreviousMonth(const FX::FXDate& date);
  static FX::FXDate getDateInNextMonth(const FX::FXDate& date);

  /// The parts, owned by the picker.
  FX::FXButton* getYearButton() const { return yearButton; }
  FX::FXSpinner* getYearSpinner() const { return yearSpinner; }
  FX::FXLabel* getMonthLabel() const { return monthLabel; }
  FX::FXArrowButton* getPrevButton() const { return prevButton; }
  FX::FXArrowButton* getNextButton() const { return nextButton; }

  /// The number of cells, 42, and the cell at `index` in grid order.
  FX::FXint getNumCells() const { return cells.no(); }
  FXDatePickerLabel* getCell(FX::FXint index) const;

  /// The cell that was chosen last, null when none was. It may show another day by now.
  FXDatePickerLabel* getSelectedCell() const { return selectedCell; }

  long onCmdPrev(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdNext(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdToday(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onLabelSelected(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdYear(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onCmdYearNo(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onKpYearNo(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onVMouseWheel(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  FXDatePicker();

 private:
  FX::FXFont* boldFont;         // owned; the year button's font, bold
  FX::FXuint messageId;         // what the target is sent
  FX::FXObject* target;         // not owned
  FX::FXLabel* monthLabel;      // owned by the window tree, like the next three
  FX::FXButton* yearButton;     // the year as text
  FX::FXVerticalFrame* header;  // year and month
  FX::FXSpinner* yearSpinner;   // the year while it is being changed
  FX::FXColor monthBackColor;   // of the month's row
  FX::FXColor monthTextColor;   // of the month's name
  FX::FXColor yearBackColor;    // of the header
  FX::FXColor yearTextColor;    // of the year and of the arrows
  FX::FXColor selForeColor;     // stored only, like the next three
  FX::FXColor selectionBackColor;
  [[maybe_unused]] FX::FXColor sundayColor;
  [[maybe_unused]] FX::FXColor saturdayColor;
  FX::FXArrowButton* nextButton;  // owned by the window tree, like the next two
  FX::FXArrowButton* prevButton;
  FX::FXHorizontalFrame* monthRow;
  FX::FXObjectList cells;                     // the 42 FXDatePickerLabel in grid order, owned by the window tree
  [[maybe_unused]] FX::FXColor holidayColor;  // stored only
  FXDatePickerLabel* selectedCell;            // one of the cells, or null
  FX::FXDate displayedDate;                   // the month shown
  FX::FXDate selectedDate;                    // the chosen date
  FXDatePickerHoliday* holiday;               // owned; may be null

  void createHeader();
  void createMonthRow();
  void createGrid();
  void createHeadings(FX::FXMatrix* grid);
  void createCells(FX::FXMatrix* grid);
  void displayDate(const FX::FXDate& date);
  void releaseKeys();

  FXDatePicker(const FXDatePicker&) = delete;
  FXDatePicker& operator=(const FXDatePicker&) = delete;
};

static_assert(FXDatePicker::ID_PREV == 55 && FXDatePicker::ID_NEXT == 56 && FXDatePicker::ID_TODAY == 57 &&
                  FXDatePicker::ID_LABEL == 58 && FXDatePicker::ID_YEAR == 59 && FXDatePicker::ID_YEARNO == 60,
              "the numbers that the message map and its senders go by");

}  // namespace FXExt
