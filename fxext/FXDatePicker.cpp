// The calendar of one month: how it is built, filled and paged through.
#include "fxext/FXDatePicker.h"

#include <fxkeys.h>

#include <initializer_list>

#include "fxext/FXDatePickerHoliday.h"
#include "fxext/FXDatePickerLabel.h"

using namespace FX;

namespace FXExt {

FXDEFMAP(FXDatePicker)
FXDatePickerMap[] = {
    FXMAPFUNC(SEL_COMMAND, FXDatePicker::ID_PREV, FXDatePicker::onCmdPrev),
    FXMAPFUNC(SEL_COMMAND, FXDatePicker::ID_NEXT, FXDatePicker::onCmdNext),
    FXMAPFUNC(SEL_COMMAND, FXDatePicker::ID_TODAY, FXDatePicker::onCmdToday),
    FXMAPFUNC(SEL_LEFTBUTTONPRESS, FXDatePicker::ID_LABEL, FXDatePicker::onLabelSelected),
    FXMAPFUNC(SEL_COMMAND, FXDatePicker::ID_YEAR, FXDatePicker::onCmdYear),
    FXMAPFUNC(SEL_COMMAND, FXDatePicker::ID_YEARNO, FXDatePicker::onCmdYearNo),
    FXMAPFUNC(SEL_KEYPRESS, FXDatePicker::ID_YEARNO, FXDatePicker::onKpYearNo),
    FXMAPFUNC(SEL_MOUSEWHEEL, 0, FXDatePicker::onVMouseWheel),
    FXMAPFUNC(SEL_KEYPRESS, 0, FXDatePicker::onKeyPress),
};
static_assert(ARRAYNUMBER(FXDatePickerMap) == 9, "the header's five, the cells, today, the wheel and the keys");

FXIMPLEMENT(FXDatePicker, FXVerticalFrame, FXDatePickerMap, ARRAYNUMBER(FXDatePickerMap))

namespace {

constexpr FXint kDaysPerWeek = 7;
constexpr FXint kWeeks = 6;
constexpr FXint kFirstYear = 1900;
constexpr FXint kLastYear = 2900;

constexpr FXuint kHeaderOptions = FRAME_LINE | LAYOUT_FILL_X;
static_assert(kHeaderOptions == 13312, "line frame, fills its width");

constexpr FXuint kYearButtonOptions = BUTTON_TOOLBAR | LAYOUT_FILL_X;
static_assert(kYearButtonOptions == 0x2000400, "toolbar button, fills its width");

constexpr FXuint kHeaderPartOptions = LAYOUT_FILL_X;
static_assert(kHeaderPartOptions == 1024, "fills its width");

constexpr FXuint kPrevButtonOptions = ARROW_LEFT | FRAME_THICK | LAYOUT_FILL_Y;
static_assert(kPrevButtonOptions == 0x204800, "arrow left, thick, fills its height");

constexpr FXuint kNextButtonOptions = ARROW_RIGHT | FRAME_THICK | LAYOUT_FILL_Y | LAYOUT_RIGHT;
static_assert(kNextButtonOptions == 0x404804, "arrow right, thick, fills its height, at the right");

constexpr FXuint kGridOptions = MATRIX_BY_COLUMNS | LAYOUT_FILL_X | LAYOUT_FILL_ROW | LAYOUT_FILL_COLUMN;
static_assert(kGridOptions == 132099, "matrix by columns, fills its width, its row and its column");

constexpr FXuint kHeadingOptions = LAYOUT_FIX_WIDTH;
static_assert(kHeadingOptions == 256, "fixed width");

constexpr FXuint kCellOptions = LAYOUT_FILL_X | LAYOUT_FILL_Y | LAYOUT_CENTER_X | LAYOUT_CENTER_Y;
static_assert(kCellOptions == 3112, "fills its width and height, centred");

static_assert(FXFont::Bold == 70, "the weight of the header's font");

constexpr FXColor kCellColor = FXRGB(255, 255, 255);

FXint measure(FXFont* font, const FXString& text) {
  font->create();
  return font->getTextWidth(text);
}

FXint getDaysInMonth(FXint year, FXint month) { return FXDate(year, month, 1).daysInMonth(); }

FXDate getDateOrLastDay(FXint year, FXint month, FXint day) {
  return FXDate(year, month, FXMIN(day, getDaysInMonth(year, month)));
}

}  // namespace

FXDatePicker::FXDatePicker(FXComposite* container, FXDatePickerHoliday* holidays, FXObject* receiver,
                           FXSelector selector, FXuint opts, FXint x, FXint y, FXint w, FXint h, FXint pl, FXint pr,
                           FXint pt, FXint pb)
    : FXVerticalFrame(container, opts, x, y, w, h, pl, pr, pt, pb),
      boldFont(nullptr),
      messageId(selector),
      target(receiver),
      monthBackColor(getApp()->getSelMenuBackColor()),
      monthTextColor(getApp()->getSelMenuTextColor()),
      yearBackColor(getApp()->getSelMenuBackColor()),
      yearTextColor(getApp()->getSelMenuTextColor()),
      selForeColor(getApp()->getSelforeColor()),
      selectionBackColor(getApp()->getSelbackColor()),
      sundayColor(FXRGB(255, 0, 0)),
      saturdayColor(FXRGB(0, 0, 255)),
      holidayColor(FXRGB(200, 0, 0)),
      selectedCell(nullptr),
      displayedDate(FXDate::localDate()),
      holiday(holidays) {
  setBackColor(getApp()->getBackColor());
  createHeader();
  createGrid();
  selectedDate = displayedDate;
  fill(displayedDate);
}

FXDatePicker::FXDatePicker()
    : boldFont(nullptr),
      messageId(0),
      target(nullptr),
      monthLabel(nullptr),
      yearButton(nullptr),
      header(nullptr),
      yearSpinner(nullptr),
      monthBackColor(0),
      monthTextColor(0),
      yearBackColor(0),
      yearTextColor(0),
      selForeColor(0),
      selectionBackColor(0),
      sundayColor(0),
      saturdayColor(0),
      nextButton(nullptr),
      prevButton(nullptr),
      monthRow(nullptr),
      holidayColor(0),
      selectedCell(nullptr),
      displayedDate(0u),
      selectedDate(0u),
      holiday(nullptr) {}

FXDatePicker::~FXDatePicker() {
  delete holiday;
  delete boldFont;
}

void FXDatePicker::createHeader() {
  header = new FXVerticalFrame(this, kHeaderOptions);
  header->setBackColor(yearBackColor);

  yearButton = new FXButton(header, FXString::null, nullptr, this, ID_YEAR, kYearButtonOptions, 0, 0, 0, 0, 2, 2, 2, 2);
  FXFontDesc description;
  yearButton->getFont()->getFontDesc(description);
  description.weight = FXFont::Bold;
  boldFont = new FXFont(getApp(), description);
  boldFont->create();
  yearButton->setBackColor(yearBackColor);
  yearButton->setTextColor(yearTextColor);
  yearButton->setFont(boldFont);

  yearSpinner = new FXSpinner(header, 1, this, ID_YEARNO, kHeaderPartOptions, 0, 0, 0, 0, 2, 2, 2, 2);
  yearSpinner->setRange(kFirstYear, kLastYear);
  yearSpinner->hide();

  createMonthRow();
}

void FXDatePicker::createMonthRow() {
  const FXint arrowsWidth = measure(getApp()->getNormalFont(), "><");
  monthRow = new FXHorizontalFrame(header, kHeaderPartOptions, 0, 0, arrowsWidth, 0, DEFAULT_SPACING, DEFAULT_SPACING,
                                   DEFAULT_SPACING, DEFAULT_SPACING, 4, 4);
  monthRow->setBackColor(yearBackColor);

  prevButton = new FXArrowButton(monthRow, this, ID_PREV, kPrevButtonOptions);
  monthLabel = new FXLabel(monthRow, FXString::null, nullptr, kHeaderPartOptions, 0, 0, 0, 0, 2, 2, 2, 2);
  monthLabel->setBackColor(monthBackColor);
  monthLabel->setTextColor(monthTextColor);
  nextButton = new FXArrowButton(monthRow, this, ID_NEXT, kNextButtonOptions);
  for (FXArrowButton* arrow : {prevButton, nextButton}) {
    arrow->setBackColor(yearBackColor);
    arrow->setHiliteColor(yearBackColor);
    arrow->setArrowColor(yearTextColor);
  }
}

void FXDatePicker::createGrid() {
  auto* grid = new FXMatrix(this, kDaysPerWeek, kGridOptions, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1);
  grid->setBackColor(getApp()->getShadowColor());  // shows between and around the cells as lines
  createHeadings(grid);
  createCells(grid);
}

void FXDatePicker::createHeadings(FXMatrix* grid) {
  FXint widest = 0;
  for (FXint day = FXDate::Sun; day <= FXDate::Sat; ++day) {
    widest = FXMAX(widest, measure(boldFont, tr(FXDate::dayNameShort(day))));
  }
  for (const FXint day : {FXDate::Mon, FXDate::Tue, FXDate::Wed, FXDate::Thu, FXDate::Fri, FXDate::Sat, FXDate::Sun}) {
    auto* heading =
        new FXLabel(grid, tr(FXDate::dayNameShort(day)), nullptr, kHeadingOptions, 0, 0, widest, 0, 2, 2, 2, 2);
    heading->setFont(boldFont);
  }
}

void FXDatePicker::createCells(FXMatrix* grid) {
  const FXint cellWidth = measure(getApp()->getNormalFont(), "30");
  for (FXint index = 0; index < kWeeks * kDaysPerWeek; ++index) {
    auto* cell = new FXDatePickerLabel(grid, this, ID_LABEL, FXString::null, nullptr, kCellOptions, 0, 0, cellWidth, 0,
                                       2, 2, 2, 2);
    cell->setBackColor(kCellColor);
    cells.append(cell);
  }
}

void FXDatePicker::create() { FXVerticalFrame::create(); }

void FXDatePicker::detach() { FXVerticalFrame::detach(); }

FXDate FXDatePicker::setSelectedDate(FXDate date) {
  displayedDate = date;
  selectedDate = date;
  fill(displayedDate);
  return date;
}

void FXDatePicker::reset() {
  displayedDate = FXDate::localDate();
  fill(displayedDate);
}

void FXDatePicker::fill(const FXDate& date) {
  const FXDate firstDay(date.year(), date.month(), 1);
  const FXDate today = FXDate::localDate();
  monthLabel->setText(tr(FXDate::monthName(firstDay.month())));
  yearButton->setText(FXStringFormat("%04d", firstDay.year()));
  yearSpinner->setValue(firstDay.year());

  for (FXint index = 0; index < getNumCells(); ++index) {
    FXDatePickerLabel* cell = getCell(index);
    if (cell->showsSelection()) cell->deselect();  // reset leaves the colours, and the cell may stay empty now
    cell->reset();
  }
  // On purpose: the selected cell is not forgotten when the chosen date is in another month than the one shown.
  const FXint offset = firstDay.dayOfWeek() == FXDate::Sun ? 6 : firstDay.dayOfWeek() - 1;
  for (FXint day = 0; day < firstDay.daysInMonth(); ++day) {
    const FXDate shown = firstDay + day;
    FXDatePickerLabel* cell = getCell(offset + day);
    cell->init(shown, today, holiday);
    if (shown == selectedDate) {
      selectedCell = cell;
      cell->select();
    } else {
      cell->deselect();
    }
  }
}

// On purpose: here and in decYear the day is not clamped, so 29 February lands on 1 March in a year without it.
void FXDatePicker::incYear() {
  const FXint year = displayedDate.year() + 1;
  displayDate(FXDate(year > kLastYear ? kFirstYear : year, displayedDate.month(), displayedDate.day()));
}

void FXDatePicker::decYear() {
  const FXint year = displayedDate.year() - 1;
  displayDate(FXDate(year < kFirstYear ? kLastYear : year, displayedDate.month(), displayedDate.day()));
}

void FXDatePicker::displayDate(const FXDate& date) {
  displayedDate = date;
  fill(displayedDate);
  if (target) target->tryHandle(this, FXSEL(SEL_CHANGED, messageId), &displayedDate);
}

void FXDatePicker::showSpinner() {
  yearButton->hide();
  yearSpinner->show();
  yearSpinner->setFocus();
  // As when the focus comes by a key: the first digit typed replaces the year. The spinner's first part is its field.
  yearSpinner->getFirst()->handle(this, FXSEL(SEL_COMMAND, FXTextField::ID_SELECT_ALL), nullptr);
  header->layout();
}

void FXDatePicker::hideSpinner() {
  yearButton->show();
  yearSpinner->hide();
  header->layout();
  releaseKeys();
}

// In a pop-up the keys belong to the pop-up's owner, who gets what no part of the calendar takes. A click on a button
// of the header takes the focus, and would turn the arrow keys from moving the date to moving the focus.
void FXDatePicker::releaseKeys() {
  if (getShell()->isMemberOf(FXMETACLASS(FXPopup))) killFocus();
}

void FXDatePicker::setMonthBkColor(FXColor color) {
  monthBackColor = color;
  monthRow->setBackColor(color);
  monthLabel->setBackColor(color);
}

// On purpose: the month's row, which stands in the header, takes the year's colour too, and the header itself does not.
void FXDatePicker::setYearBkColor(FXColor color) {
  yearBackColor = color;
  monthRow->setBackColor(color);
  yearButton->setBackColor(color);
}

FXDate FXDatePicker::getDateInPreviousMonth(const FXDate& date) {
  const FXint year = date.year();
  const FXint month = date.month();
  if (month > FXDate::Jan) return getDateOrLastDay(year, month - 1, date.day());
  // No date is written with a year below 1, and far enough below it the toolkit would end the program.
  return year > 1 ? getDateOrLastDay(year - 1, FXDate::Dec, date.day()) : date;
}

FXDate FXDatePicker::getDateInNextMonth(const FXDate& date) {
  const FXint year = date.year();
  const FXint month = date.month();
  if (month < FXDate::Dec) return getDateOrLastDay(year, month + 1, date.day());
  return getDateOrLastDay(year + 1, FXDate::Jan, date.day());
}

FXDatePickerLabel* FXDatePicker::getCell(FXint index) const { return static_cast<FXDatePickerLabel*>(cells[index]); }

// On purpose: this, onCmdNext and onCmdYear answer 0, not handled, although everything is done.
long FXDatePicker::onCmdPrev(FXObject*, FXSelector, void*) {
  hideSpinner();
  displayDate(getDateInPreviousMonth(displayedDate));
  return 0;
}

long FXDatePicker::onCmdNext(FXObject*, FXSelector, void*) {
  hideSpinner();
  displayDate(getDateInNextMonth(displayedDate));
  return 0;
}

long FXDatePicker::onCmdToday(FXObject*, FXSelector, void*) {
  displayDate(FXDate::localDate());
  return 1;
}

long FXDatePicker::onLabelSelected(FXObject* sender, FXSelector, void*) {
  auto* cell = static_cast<FXDatePickerLabel*>(sender);
  if (!cell->showsDay()) return 1;
  if (selectedCell) selectedCell->deselect();
  selectedCell = cell;
  selectedCell->select();
  selectedDate = FXDate(displayedDate.year(), displayedDate.month(), cell->getDay());
  hideSpinner();
  if (target) target->tryHandle(this, FXSEL(SEL_LEFTBUTTONPRESS, messageId), &selectedDate);
  return 1;
}

long FXDatePicker::onCmdYear(FXObject*, FXSelector, void*) {
  showSpinner();
  return 0;
}

long FXDatePicker::onCmdYearNo(FXObject*, FXSelector, void*) {
  // On purpose: the day is not clamped, so 29 February lands on 1 March in a year without it.
  displayedDate = FXDate(yearSpinner->getValue(), displayedDate.month(), displayedDate.day());
  fill(displayedDate);
  return 1;
}

long FXDatePicker::onKpYearNo(FXObject*, FXSelector, void* ptr) {
  if (static_cast<const FXEvent*>(ptr)->code != KEY_Return) return 0;
  // The spinner corrects a text outside its range and then reports the year as any other change.
  yearSpinner->handle(this, FXSEL(SEL_COMMAND, FXSpinner::ID_ENTRY), nullptr);
  hideSpinner();
  return 1;
}

long FXDatePicker::onVMouseWheel(FXObject* sender, FXSelector sel, void* ptr) {
  if (static_cast<const FXEvent*>(ptr)->code < 0) return onCmdNext(sender, sel, ptr);
  return onCmdPrev(sender, sel, ptr);
}

}  // namespace FXExt
