// Long sentences on several lines.
#include "host/windows/WrappedText.h"

using namespace FX;

namespace Quillane::Host {

namespace {

/// How many characters text has, not bytes.
int countCharacters(const FXString& text) {
  int count = 0;
  for (FXint i = 0; i < text.length(); ++i)
    if ((static_cast<FXuchar>(text[i]) & 0xC0) != 0x80) ++count;
  return count;
}

FXString wrapLine(const FXString& line, int lineLength) {
  FXString wrapped;
  int used = 0;
  for (FXint word = 0; word <= line.contains(' '); ++word) {
    const FXString text = line.section(' ', word);
    const int length = countCharacters(text);
    if (word > 0) {
      const bool fits = used + 1 + length <= lineLength;
      wrapped += fits ? " " : "\n";
      used = fits ? used + 1 : 0;
    }
    wrapped += text;
    used += length;
  }
  return wrapped;
}

}  // namespace

FXString wrapText(const FXString& text, int lineLength) {
  FXString wrapped;
  for (FXint line = 0; line <= text.contains('\n'); ++line) {
    if (line > 0) wrapped += "\n";
    wrapped += wrapLine(text.section('\n', line), lineLength);
  }
  return wrapped;
}

}  // namespace Quillane::Host
