// The calendar's question for holidays.
#pragma once

#include <fx.h>

namespace FXExt {

/// Says which dates a calendar marks as holidays. The picker that is given one owns it, and asks for every day of the
/// month each time that it shows a month.
class FXDatePickerHoliday {
 public:
  /// True when the date is to be marked.
  virtual bool isHoliday(FX::FXDate& date) = 0;

  virtual ~FXDatePickerHoliday() = default;
};

}  // namespace FXExt
