// How foreign texts stand in the sentences that people read.
#include "host/command/Wording.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr FXint kLongestQuotation = 80;  // bytes

bool isContinuationByte(FXchar byte) { return (static_cast<FXuchar>(byte) & 0xC0) == 0x80; }

}  // namespace

FXString quoteText(const FXString& text) {
  FXString quoted = text;
  if (quoted.length() > kLongestQuotation) {
    FXint end = kLongestQuotation;
    while (end > 0 && isContinuationByte(quoted[end])) --end;
    quoted = quoted.left(end) + "…";
  }
  for (FXint i = 0; i < quoted.length(); ++i) {
    if (static_cast<FXuchar>(quoted[i]) < ' ') quoted[i] = ' ';
  }
  return quoted;
}

}  // namespace Quillane::Commands
