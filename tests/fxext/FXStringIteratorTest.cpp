// The walk over a text's fields.
#include "fxext/FXStringIterator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

using namespace FX;
using FXExt::FXStringIterator;
using testing::ElementsAre;

namespace {

static_assert(!std::is_polymorphic_v<FXStringIterator>);

std::vector<std::string> fields(const FXString& text, char separator, int startIndex = 0) {
  std::vector<std::string> found;
  for (FXStringIterator field(text, separator, startIndex); field.hasNext() && found.size() < 100; ++field) {
    EXPECT_EQ(field.getPos(), static_cast<int>(found.size()));
    const FXString content = field.get();
    found.emplace_back(content.text(), content.length());
  }
  return found;
}

TEST(FXStringIterator, yieldsTheFieldsBetweenSeparators) {
  EXPECT_THAT(fields("a,b", ','), ElementsAre("a", "b"));
  EXPECT_THAT(fields("kék,zöld,sárga", ','), ElementsAre("kék", "zöld", "sárga"));
}

TEST(FXStringIterator, walksStepByStep) {
  const FXString text("a,b");
  FXStringIterator field(text, ',', 0);
  EXPECT_TRUE(field.hasNext());
  EXPECT_EQ(field.getPos(), 0);
  EXPECT_EQ(field.get(), "a");

  EXPECT_EQ(field.next(), 3) << "the last field ends with the text";
  EXPECT_TRUE(field.hasNext());
  EXPECT_EQ(field.getPos(), 1);
  EXPECT_EQ(field.get(), "b");

  EXPECT_EQ(field.next(), 4) << "one more than the text's length: the walk is over";
  EXPECT_FALSE(field.hasNext());
  EXPECT_EQ(field.getPos(), 2);
}

TEST(FXStringIterator, tellsTheIndexOfTheSeparatorThatEndsAField) {
  const FXString text("ab,cde,f");
  FXStringIterator field(text, ',', 0);
  EXPECT_EQ(field.next(), 6);
  EXPECT_EQ(field.next(), 8);
  EXPECT_EQ(field.next(), 9);
}

TEST(FXStringIterator, yieldsOneEmptyFieldForAnEmptyText) {
  EXPECT_THAT(fields("", ','), ElementsAre(""));

  const FXString text;
  FXStringIterator field(text, ',', 0);
  EXPECT_TRUE(field.hasNext());
  ++field;
  EXPECT_EQ(field.getPos(), 1);
  EXPECT_FALSE(field.hasNext());
}

TEST(FXStringIterator, yieldsEmptyFieldsBesideSeparators) {
  EXPECT_THAT(fields("a,", ','), ElementsAre("a", ""));
  EXPECT_THAT(fields(",a", ','), ElementsAre("", "a"));
  EXPECT_THAT(fields("a,,b", ','), ElementsAre("a", "", "b"));
  EXPECT_THAT(fields(",", ','), ElementsAre("", ""));
  EXPECT_THAT(fields(",,", ','), ElementsAre("", "", ""));
}

TEST(FXStringIterator, yieldsTheWholeTextWithoutASeparator) {
  EXPECT_THAT(fields("abc", ','), ElementsAre("abc"));
  EXPECT_THAT(fields("a,b", ';'), ElementsAre("a,b"));
}

TEST(FXStringIterator, leavesBlanksInAField) { EXPECT_THAT(fields(" a , b ", ','), ElementsAre(" a ", " b ")); }

TEST(FXStringIterator, skipsWhatStandsBeforeTheStartIndex) {
  EXPECT_THAT(fields("ab,cd,ef", ',', 1), ElementsAre("b", "cd", "ef"));
  EXPECT_THAT(fields("ab,cd,ef", ',', 3), ElementsAre("cd", "ef"));
  EXPECT_THAT(fields("ab,cd", ',', 2), ElementsAre("", "cd")) << "on a separator the first field is empty";
  EXPECT_THAT(fields("ab,cd", ',', 5), ElementsAre("")) << "at the text's end";
  EXPECT_EQ(fields("ab,cd", ',', 50), std::vector<std::string>{""}) << "behind the text's end";
}

TEST(FXStringIterator, splitsAtTheSeparatorGivenAlsoWithinMultiByteCharactersAndNuls) {
  EXPECT_THAT(fields(FXString("a\0b,c", 5), ','), ElementsAre(std::string("a\0b", 3), "c"));
  EXPECT_THAT(fields(FXString("a\0b,c", 5), '\0'), ElementsAre("a", "b,c"));
  EXPECT_THAT(fields("ő", '\x91'), ElementsAre("\xc5", ""));
}

TEST(FXStringIterator, keepsReturningItselfFromBothIncrements) {
  const FXString text("a,b,c");
  FXStringIterator field(text, ',', 0);
  FXStringIterator& prefix = ++field;
  EXPECT_EQ(&prefix, &field);
  EXPECT_EQ(field.get(), "b");
  FXStringIterator& postfix = field++;
  EXPECT_EQ(&postfix, &field);
  EXPECT_EQ(postfix.get(), "c");
}

TEST(FXStringIterator, readsTheCallersTextWithoutCopyingIt) {
  FXString text("a,b");
  FXStringIterator field(text, ',', 0);
  text[2] = 'x';
  ++field;
  EXPECT_EQ(field.get(), "x");
}

TEST(FXStringIterator, walksALongText) {
  FXString text;
  for (int i = 0; i < 1000; ++i) text.append("value,");
  int count = 0;
  for (FXStringIterator field(text, ',', 0); field.hasNext() && count < 2000; field++) ++count;
  EXPECT_EQ(count, 1001);
}

}  // namespace
