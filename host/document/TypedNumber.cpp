// Numbers as people type them.
#include "host/document/TypedNumber.h"

#include <libintl.h>

#include <algorithm>
#include <string>
#include <string_view>

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr std::size_t kMostDigits = 15;

// Blanks that stand between groups of digits: the ordinary one, the no-break one and the narrow no-break one.
constexpr std::string_view kBlanks[] = {" ", "\xC2\xA0", "\xE2\x80\xAF"};

/// The bytes of the blank that text begins with; 0 when it begins with none.
std::size_t blankAt(std::string_view text) {
  for (std::string_view blank : kBlanks)
    if (text.substr(0, blank.size()) == blank) return blank.size();
  return 0;
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

struct Digits {
  bool negative = false;
  bool point = false;
  std::string whole;
  std::string fraction;
};

/// False when text is no number. Blanks may stand around the number, behind the sign and between the digits of the
/// whole part.
bool read(std::string_view text, Digits& digits) {
  while (const std::size_t blank = blankAt(text)) text.remove_prefix(blank);
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    digits.negative = text[0] == '-';
    text.remove_prefix(1);
  }
  bool ended = false;  // only blanks may follow a blank in the fraction
  while (!text.empty()) {
    if (const std::size_t blank = blankAt(text)) {
      ended = digits.point;
      text.remove_prefix(blank);
      continue;
    }
    const char character = text[0];
    text.remove_prefix(1);
    if (ended) return false;
    if (isDigit(character)) {
      (digits.point ? digits.fraction : digits.whole) += character;
    } else if ((character == ',' || character == '.') && !digits.point) {
      digits.point = true;
    } else {
      return false;
    }
  }
  return !digits.whole.empty() || !digits.fraction.empty();
}

void dropNeedlessZeros(Digits& digits) {
  digits.whole.erase(0, std::min(digits.whole.find_first_not_of('0'), digits.whole.size()));
  digits.fraction.erase(digits.fraction.find_last_not_of('0') + 1);
}

}  // namespace

bool parseTypedNumber(const FXString& typed, FXString& number, FXString& error) {
  Digits digits;
  if (!read({typed.text(), static_cast<std::size_t>(typed.length())}, digits)) {
    error = FXStringFormat(dgettext("quillane", "Ez nem szám: „%s”."), typed.text());
    return false;
  }
  dropNeedlessZeros(digits);
  if (digits.whole.size() + digits.fraction.size() > kMostDigits) {
    error = FXStringFormat(dgettext("quillane", "Túl sok számjegy: „%s”. Legfeljebb %d lehet."), typed.text(),
                           static_cast<int>(kMostDigits));
    return false;
  }
  const bool zero = digits.whole.empty() && digits.fraction.empty();
  std::string plain = digits.negative && !zero ? "-" : "";
  plain += digits.whole.empty() ? "0" : digits.whole;
  if (!digits.fraction.empty()) plain += '.' + digits.fraction;
  number = plain.c_str();
  return true;
}

}  // namespace Quillane::Host
