// How a text from the clipboard becomes lines and fields.
#include "host/windows/PastedText.h"

#include <gtest/gtest.h>

#include <string>

using namespace FX;

namespace Quillane {
namespace {

struct Case {
  const char* text;
  const char* lines;  // in brackets, the fields parted by bars
};

std::string describe(const std::vector<std::vector<FXString>>& lines) {
  std::string text;
  for (const auto& line : lines) {
    text += "[";
    for (std::size_t field = 0; field < line.size(); ++field)
      text += (field ? "|" : "") + std::string(line[field].text());
    text += "]";
  }
  return text;
}

TEST(PastedText, isSplitAtTabsAndLineEndsOnly) {
  const Case cases[] = {
      {"", ""},
      {"\n", ""},
      {"\r\n\r\n", ""},
      {"a", "[a]"},
      {"a\tb", "[a|b]"},
      {"a, b;c d", "[a, b;c d]"},
      {"a\t", "[a|]"},
      {"\ta", "[|a]"},
      {"\t\t", "[||]"},
      {"a\nb\n", "[a][b]"},
      {"a\r\nb\rc\n\nd\r\n\r\n", "[a][b][c][][d]"},
      {"1\tő\n2\tű", "[1|ő][2|ű]"},
  };
  for (const Case& one : cases) EXPECT_EQ(describe(splitPastedText(one.text)), one.lines) << one.text;
}

}  // namespace
}  // namespace Quillane
