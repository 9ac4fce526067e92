#include "host/database/FoldedText.h"

#include <gtest/gtest.h>

#include "tests/host/database/DatabaseFixture.h"

using namespace FX;

namespace Quillane::Database {
namespace {

TEST(FoldedText, hasSmallLettersOfAllLanguages) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"Abc 12-X", "abc 12-x"},
      {"ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP", "árvíztűrő tükörfúrógép"},
      {"Őrségi", "őrségi"},
      {"ÄÖÜ ČŠŽ Ł Ø", "äöü čšž ł ø"},
      {"ПРИВЕТ ΑΒΓ", "привет αβγ"},
      {"14\" 3 × 1,5 mm²", "14\" 3 × 1,5 mm²"},
      {"\xF0\x9F\x98\x80 A", "\xF0\x9F\x98\x80 a"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(foldCase(text), expected);
}

TEST(FoldedText, leavesBytesAloneThatAreNoUtf8) {
  for (const char* text : {"\xFF", "a\xC5", "\xC5 b", "\xE2\x82", "\xF0\x9F\x98", "\xC0\x80", "\xE0\x80\x80",
                           "\xF4\x90\x80\x80", "\x80\x80"})
    EXPECT_EQ(foldCase(text), text);
  EXPECT_EQ(foldCase("A\xC5"), "a\xC5");
}

TEST(FoldedText, goesOnBehindANul) { EXPECT_EQ(foldCase(FXString("A\0Ő", 4)), FXString("a\0ő", 4)); }

TEST(FoldedText, hasAKeyForTheAlphabetWithoutAccents) {
  const std::pair<const char*, const char*> cases[] = {
      {"Őrségi Pálinka", "orsegi palinka"},
      {"ÁRVÍZTŰRŐ", "arvizturo"},
      {"e\xCC\x81l", "el"},
      {"Łódź", "łodz"},
      {"abc", "abc"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(alphabeticKey(text), expected) << text;
}

TEST_F(DatabaseFixture, foldsTextsInSql) {
  EXPECT_EQ(rows("select fold_case('ŐRSÉGI'), fold_case(null), fold_case(12), fold_case('')"),
            (Rows{{"őrségi", "(null)", "12", ""}}));
}

}  // namespace
}  // namespace Quillane::Database
