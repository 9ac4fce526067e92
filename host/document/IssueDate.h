#pragma once

#include <fx.h>

namespace Quillane::Host {

/// Today's local date as documents are stored with it: YYYY-MM-DD.
FX::FXString todayAsIssueDate();

/// Reads a date as people type it: year, month and day with points, hyphens or slashes between them ("2025.3.7.",
/// "2025-03-07"). True with the date as it is stored in date, which is empty when nothing was typed; false with a
/// sentence for the user in error when the text is no day.
bool parseIssueDate(const FX::FXString& typed, FX::FXString& date, FX::FXString& error);

/// Whether the calendar has such a day.
bool isCalendarDay(int year, int month, int day);

/// A stored date as people read it: "2025-03-11" becomes "2025.03.11.". What says no day is shown as it is.
FX::FXString displayDate(const FX::FXString& stored);

}  // namespace Quillane::Host
