// Reads what people write on the command line.
#include "host/command/ArgumentText.h"

#include <libintl.h>

#include "host/command/Wording.h"
#include "host/document/IssueDate.h"
#include "host/document/TypedNumber.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr FXint kMostDigits = 9;  // fits into an int
constexpr char kDateForm[] = "0000-00-00";

bool isDigit(FXchar byte) { return '0' <= byte && byte <= '9'; }

bool hasDateForm(const FXString& text) {
  if (text.length() != FXint(sizeof(kDateForm) - 1)) return false;
  for (FXint i = 0; i < text.length(); ++i) {
    if (kDateForm[i] == '0' ? !isDigit(text[i]) : text[i] != kDateForm[i]) return false;
  }
  return true;
}

}  // namespace

Outcome readNumber(const char* what, const FXString& text, int& number) {
  bool digits = !text.empty() && text.length() <= kMostDigits;
  for (FXint i = 0; i < text.length(); ++i) digits = digits && isDigit(text[i]);
  number = digits ? FXIntVal(text) : 0;
  if (number > 0) return Outcome::success();
  return Outcome::wrongCall(FXStringFormat(dgettext("quillane", "%s: pozitív egész számot vár, ez nem az: „%s”."), what,
                                           quoteText(text).text()));
}

Outcome readDate(const char* what, const FXString& text, FXString& date) {
  date = text;
  if (hasDateForm(text)) {
    const int year = FXIntVal(text.left(4));
    const int month = FXIntVal(text.mid(5, 2));
    const int day = FXIntVal(text.mid(8, 2));
    if (Host::isCalendarDay(year, month, day)) return Outcome::success();
  }
  return Outcome::wrongCall(FXStringFormat(dgettext("quillane", "%s: ÉÉÉÉ-HH-NN alakú napot vár, ez nem az: „%s”."),
                                           what, quoteText(text).text()));
}

Outcome readDecimal(const char* what, const FXString& text, FXString& decimal) {
  FXString error;
  if (Host::parseTypedNumber(text, decimal, error)) return Outcome::success();
  return Outcome::wrongCall(FXStringFormat("%s: %s", what, error.text()));
}

}  // namespace Quillane::Commands
