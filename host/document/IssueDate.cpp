// The dates of documents: today's, and those that people type and read.
#include "host/document/IssueDate.h"

#include <libintl.h>

#include <string_view>

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr int kYearDigits = 4;
constexpr int kShortDigits = 2;  // of a month and a day
constexpr std::string_view kSeparators = "-./";

/// A text that is read from its beginning to its end.
class DateReader {
 public:
  explicit DateReader(std::string_view typed) : rest(typed) {}

  void skipBlanks() {
    while (!rest.empty() && rest[0] == ' ') rest.remove_prefix(1);
  }

  /// A number of so many digits, with blanks around it; 0 when there is none.
  int readNumber(int fewest, int most) {
    skipBlanks();
    int number = 0;
    int digits = 0;
    for (; digits < most && !rest.empty() && '0' <= rest[0] && rest[0] <= '9'; ++digits, rest.remove_prefix(1))
      number = 10 * number + (rest[0] - '0');
    skipBlanks();
    return digits < fewest ? 0 : number;
  }

  /// Goes past one of these characters; false when none of them comes.
  bool skipOne(std::string_view characters) {
    if (rest.empty() || characters.find(rest[0]) == std::string_view::npos) return false;
    rest.remove_prefix(1);
    return true;
  }

  bool isAtEnd() const { return rest.empty(); }

 private:
  std::string_view rest;
};

FXString toStoredDate(int year, int month, int day) { return FXStringFormat("%04d-%02d-%02d", year, month, day); }

/// The day as it is stored; empty when the text says none.
FXString readDay(const FXString& typed) {
  DateReader reader({typed.text(), static_cast<std::size_t>(typed.length())});
  const int year = reader.readNumber(kYearDigits, kYearDigits);
  if (!reader.skipOne(kSeparators)) return FXString();
  const int month = reader.readNumber(1, kShortDigits);
  if (!reader.skipOne(kSeparators)) return FXString();
  const int day = reader.readNumber(1, kShortDigits);
  reader.skipOne(".");
  reader.skipBlanks();
  return reader.isAtEnd() && isCalendarDay(year, month, day) ? toStoredDate(year, month, day) : FXString();
}

}  // namespace

FXString todayAsIssueDate() {
  const FXDate day = FXDate::localDate();
  return toStoredDate(day.year(), day.month(), day.day());
}

bool isCalendarDay(int year, int month, int day) {
  constexpr int kDaysOfMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (year < 1 || month < 1 || month > 12 || day < 1) return false;
  const bool leapDay = month == 2 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return day <= kDaysOfMonth[month - 1] + (leapDay ? 1 : 0);
}

FXString displayDate(const FXString& stored) {
  if (stored.empty() || readDay(stored) != stored) return stored;
  FXString shown = stored;
  return shown.substitute('-', '.') + ".";
}

bool parseIssueDate(const FXString& typed, FXString& date, FXString& error) {
  FXString text = typed;
  if (text.trim().empty()) {
    date.clear();
    return true;
  }
  const FXString read = readDay(text);
  if (read.empty()) {
    error = FXStringFormat(dgettext("quillane", "Ez nem dátum: „%s”. Így írja: 2025.03.07"), typed.text());
    return false;
  }
  date = read;
  return true;
}

}  // namespace Quillane::Host
