// One day of the calendar's grid: its flags, its colours, and the press that chooses it.
#include "fxext/FXDatePickerLabel.h"

#include "fxext/FXDatePickerHoliday.h"

using namespace FX;

namespace FXExt {

FXDEFMAP(FXDatePickerLabel)
FXDatePickerLabelMap[] = {
    FXMAPFUNC(SEL_LEFTBUTTONPRESS, 0, FXDatePickerLabel::onLeftBtnPress),
    FXMAPFUNC(SEL_CLICKED, 0, FXDatePickerLabel::onClick),
    FXMAPFUNC(SEL_PAINT, 0, FXDatePickerLabel::onPaint),
};
static_assert(ARRAYNUMBER(FXDatePickerLabelMap) == 3, "press, click and paint");

FXIMPLEMENT(FXDatePickerLabel, FXLabel, FXDatePickerLabelMap, ARRAYNUMBER(FXDatePickerLabelMap))

namespace {

const FXString kEmptyText = " ";

constexpr FXColor kWeekendColor = FXRGB(255, 0, 0);
constexpr FXColor kHolidayColor = FXRGB(200, 0, 0);  // darker, so that a holiday differs from a plain Sunday
constexpr FXColor kTodayColor = FXRGB(0, 0, 0);

}  // namespace

FXDatePickerLabel::FXDatePickerLabel(FXComposite* container, FXObject* receiver, FXSelector selector,
                                     const FXString& text, FXIcon* picture, FXuint opts, FXint x, FXint y, FXint w,
                                     FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FXLabel(container, text, picture, opts, x, y, w, h, pl, pr, pt, pb), messageId(selector), target(receiver) {
  reset();
  selBackColor = getApp()->getSelbackColor();
  selTextColor = getApp()->getSelforeColor();
  holidayTextColor = kHolidayColor;
  weekendTextColor = kWeekendColor;
}

FXDatePickerLabel::FXDatePickerLabel()
    : messageId(0),
      target(nullptr),
      day(-1),
      isToday(0),
      isHoliday(0),
      isWeekend(0),
      isSelected(0),
      isValid(0),
      selBackColor(0),
      selTextColor(0),
      holidayTextColor(0),
      weekendTextColor(0) {}

void FXDatePickerLabel::reset() {
  isToday = isHoliday = isWeekend = isSelected = isValid = 0;
  day = -1;
  setText(kEmptyText);
}

void FXDatePickerLabel::init(FXDate date, FXDate today, FXDatePickerHoliday* holiday) {
  const FXint dayOfWeek = date.dayOfWeek();
  day = date.day();
  setText(FXStringVal(day));
  isToday = date == today;
  isWeekend = dayOfWeek == FXDate::Sun || dayOfWeek == FXDate::Sat;
  isHoliday = holiday && holiday->isHoliday(date);
  isValid = 1;
  isSelected = 0;
}

void FXDatePickerLabel::select() {
  isSelected = 1;
  setBackColor(selBackColor);
  setTextColor(selTextColor);
  update();
}

void FXDatePickerLabel::deselect() {
  isSelected = 0;
  setBackColor(getApp()->getBackColor());
  if (isHoliday) {
    setTextColor(holidayTextColor);
  } else if (isWeekend) {
    setTextColor(weekendTextColor);
  } else {
    setTextColor(getApp()->getForeColor());
  }
  update();
}

long FXDatePickerLabel::onLeftBtnPress(FXObject*, FXSelector, void*) {
  return target && target->tryHandle(this, FXSEL(SEL_LEFTBUTTONPRESS, messageId), nullptr);
}

long FXDatePickerLabel::onClick(FXObject* sender, FXSelector sel, void* ptr) {
  return onLeftBtnPress(sender, sel, ptr);
}

long FXDatePickerLabel::onPaint(FXObject* sender, FXSelector sel, void* ptr) {
  FXLabel::onPaint(sender, sel, ptr);
  if (isToday) {
    FXDCWindow dc(this, static_cast<FXEvent*>(ptr));
    dc.setForeground(kTodayColor);
    dc.drawRectangle(1, 1, width - 3, height - 3);
  }
  return 1;
}

}  // namespace FXExt
