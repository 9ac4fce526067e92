// Texts as they are compared when people search and sort.
//
// Stored texts can hold any bytes: what is no UTF-8 stays as it is, byte by byte.
#include "host/database/FoldedText.h"

#include <fxunicode.h>

#include <string>

using namespace FX;

namespace Quillane::Database {

namespace {

using Byte = unsigned char;

constexpr FXwchar kFirstOfTwoBytes = 0x80;
constexpr FXwchar kFirstOfThreeBytes = 0x800;
constexpr FXwchar kFirstOfFourBytes = 0x10000;
constexpr FXwchar kLast = 0x10FFFF;
constexpr FXwchar kFirstCombiningMark = 0x300;
constexpr FXwchar kLastCombiningMark = 0x36F;

struct Character {
  FXwchar code;
  int length;  // its bytes; 0 when they are no UTF-8
};

/// The character that begins at index.
Character decode(const FXString& text, FXint index) {
  const Byte first = static_cast<Byte>(text[index]);
  if (first < 0x80) return {first, 1};
  const int length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || index + length > text.length()) return {0, 0};
  FXwchar code = first & (0x7F >> length);
  for (int i = 1; i < length; ++i) {
    const Byte next = static_cast<Byte>(text[index + i]);
    if ((next & 0xC0) != 0x80) return {0, 0};
    code = code << 6 | (next & 0x3F);
  }
  const FXwchar least[] = {0, 0, kFirstOfTwoBytes, kFirstOfThreeBytes, kFirstOfFourBytes};
  return code < least[length] || code > kLast ? Character{0, 0} : Character{code, length};
}

void append(std::string& text, FXwchar code) {
  const auto continued = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < kFirstOfTwoBytes) {
    text += static_cast<char>(code);
  } else if (code < kFirstOfThreeBytes) {
    text += {static_cast<char>(0xC0 | code >> 6), continued(0)};
  } else if (code < kFirstOfFourBytes) {
    text += {static_cast<char>(0xE0 | code >> 12), continued(6), continued(0)};
  } else {
    text += {static_cast<char>(0xF0 | code >> 18), continued(12), continued(6), continued(0)};
  }
}

/// text with convert(code) in place of every character; 0 drops it.
template <class Convert>
FXString converted(const FXString& text, const Convert& convert) {
  std::string result;
  result.reserve(static_cast<std::size_t>(text.length()));
  for (FXint i = 0; i < text.length();) {
    const Character character = decode(text, i);
    if (character.length == 0) {
      result += text[i++];
      continue;
    }
    const FXwchar code = convert(character.code);
    if (code != 0 || character.code == 0) append(result, code);
    i += character.length;
  }
  return FXString(result.data(), static_cast<FXint>(result.size()));
}

bool isPlain(const FXString& text) {
  for (FXint i = 0; i < text.length(); ++i)
    if (static_cast<Byte>(text[i]) >= 0x80) return false;
  return true;
}

/// The letter without its accents; 0 for an accent.
FXwchar withoutAccents(FXwchar code) {
  if (code < kFirstOfTwoBytes) return code;
  if (kFirstCombiningMark <= code && code <= kLastCombiningMark) return 0;
  const FXString parts = decompose(FXString(&code, 1), DecCanonical);
  const Character base = parts.empty() ? Character{0, 0} : decode(parts, 0);
  return base.length > 0 ? base.code : code;
}

}  // namespace

FXString foldCase(const FXString& text) {
  return converted(text, [](FXwchar code) { return Unicode::toLower(code); });
}

FXString alphabeticKey(const FXString& text) {
  const FXString folded = foldCase(text);
  return isPlain(folded) ? folded : converted(folded, withoutAccents);
}

}  // namespace Quillane::Database
