// Cuts a text from the clipboard into the cells that it was copied from.
#include "host/windows/PastedText.h"

#include <algorithm>
#include <string_view>

using namespace FX;

namespace Quillane {

namespace {

FXString toText(std::string_view text) { return FXString(text.data(), static_cast<FXint>(text.size())); }

// The part before the separator; it and the separator leave the text.
std::string_view takeUntil(std::string_view& text, std::size_t separator, std::size_t separatorLength) {
  const std::string_view part = text.substr(0, separator);
  text.remove_prefix(std::min(text.size(), separator == text.npos ? text.size() : separator + separatorLength));
  return part;
}

std::vector<FXString> splitLine(std::string_view text) {
  std::vector<FXString> fields;
  for (bool more = true; more;) {
    const std::size_t tab = text.find('\t');
    more = tab != text.npos;
    fields.push_back(toText(takeUntil(text, tab, 1)));
  }
  return fields;
}

}  // namespace

std::vector<std::vector<FXString>> splitPastedText(const FXString& pasted) {
  std::string_view text(pasted.text(), pasted.length());
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  std::vector<std::vector<FXString>> lines;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    const bool isPair = end != text.npos && text.substr(end, 2) == "\r\n";
    lines.push_back(splitLine(takeUntil(text, end, isPair ? 2 : 1)));
  }
  return lines;
}

}  // namespace Quillane
