// Tables read from text.
#include "host/command/CsvTable.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

using namespace FX;

namespace Quillane::Commands {
namespace {

using Cells = std::vector<std::string>;

Cells texts(const CsvLine& line) {
  Cells cells;
  for (const FXString& cell : line.cells) cells.emplace_back(cell.text(), cell.length());
  return cells;
}

struct Read {
  std::vector<Cells> lines;  // the header is the first
  std::vector<int> numbers;
};

Read read(const std::string& text) {
  CsvTable table;
  FXString error;
  EXPECT_TRUE(table.read(FXString(text.data(), static_cast<FXint>(text.size())), error)) << text << error.text();
  Read result{{texts(table.getHeader())}, {table.getHeader().number}};
  for (const CsvLine& line : table.getLines()) {
    result.lines.push_back(texts(line));
    result.numbers.push_back(line.number);
  }
  return result;
}

struct Case {
  const char* name;
  std::string text;
  std::vector<Cells> lines;
  std::vector<int> numbers;
};

void PrintTo(const Case& tested, std::ostream* out) { *out << tested.name; }

class CsvTableText : public testing::TestWithParam<Case> {};

TEST_P(CsvTableText, isReadAsWritten) {
  const Read table = read(GetParam().text);
  EXPECT_EQ(table.lines, GetParam().lines);
  EXPECT_EQ(table.numbers, GetParam().numbers);
}

INSTANTIATE_TEST_SUITE_P(
    CsvTable, CsvTableText,
    testing::Values(
        Case{"commas", "a,b\n1,2\n", {{"a", "b"}, {"1", "2"}}, {1, 2}},
        Case{"semicolons", "a;b\n1,5;2\n", {{"a", "b"}, {"1,5", "2"}}, {1, 2}},
        Case{"tabs", "a\tb\n1;5\t2,5\n", {{"a", "b"}, {"1;5", "2,5"}}, {1, 2}},
        Case{"oneColumn", "a\n1\n2\n", {{"a"}, {"1"}, {"2"}}, {1, 2, 3}},
        Case{"noLineEndAtTheEnd", "a,b\n1,2", {{"a", "b"}, {"1", "2"}}, {1, 2}},
        Case{"headerAlone", "a,b", {{"a", "b"}}, {1}},
        Case{"carriageReturns", "a,b\r\n1,2\r\n3,4\r\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}}, {1, 2, 3}},
        Case{"carriageReturnsAlone", "a,b\r1,2\r", {{"a", "b"}, {"1", "2"}}, {1, 2}},
        Case{"byteOrderMark",
             "\xEF\xBB\xBF"
             "a,b\n1,2\n",
             {{"a", "b"}, {"1", "2"}},
             {1, 2}},
        Case{"byteOrderMarkBeforeAQuote", "\xEF\xBB\xBF\"a\",b\n", {{"a", "b"}}, {1}},
        Case{"emptyLines", "\n\na,b\n\n1,2\n\n\n3,4\n\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}}, {3, 5, 8}},
        Case{"emptyCells", "a,b,c\n,,\n1,,\n", {{"a", "b", "c"}, {"", "", ""}, {"1", "", ""}}, {1, 2, 3}},
        Case{"fewerAndMoreCells", "a,b\n1\n1,2,3\n", {{"a", "b"}, {"1"}, {"1", "2", "3"}}, {1, 2, 3}},
        Case{"blanksStay", "a , b\n  1,2  \n\t3\t,4\n", {{"a ", " b"}, {"  1", "2  "}, {"\t3\t", "4"}}, {1, 2, 3}},
        Case{"quotedSeparators", "a,b\n\"1,2\",\"3;4\"\n", {{"a", "b"}, {"1,2", "3;4"}}, {1, 2}},
        Case{"quotedQuotes", "a,b\n\"\"\"x\"\"\",\"\"\n", {{"a", "b"}, {"\"x\"", ""}}, {1, 2}},
        Case{"quotedEmptyCellAlone", "a\n\"\"\n", {{"a"}, {""}}, {1, 2}},
        Case{"quotedLineEnds",
             "a,b\n\"1\n2\",3\n\"4\r\n5\",6\n7,8\n",
             {{"a", "b"}, {"1\n2", "3"}, {"4\r\n5", "6"}, {"7", "8"}},
             {1, 2, 4, 6}},
        Case{"quotedHeader", "\"a\nb\";c\n1;2\n", {{"a\nb", "c"}, {"1", "2"}}, {1, 3}},
        Case{"bytesThatAreNoUtf8", "a,b\n\xFF\xFE,\xE9\n", {{"a", "b"}, {"\xFF\xFE", "\xE9"}}, {1, 2}},
        Case{"hostile", "a,b\n%a,'; drop\n\\n,😀\n", {{"a", "b"}, {"%a", "'; drop"}, {"\\n", "😀"}}, {1, 2, 3}},
        Case{"large", "a\n" + std::string(100 * 1024, 'x') + "\n", {{"a"}, {std::string(100 * 1024, 'x')}}, {1, 2}}),
    [](const testing::TestParamInfo<Case>& tested) { return tested.param.name; });

struct BrokenCase {
  const char* name;
  std::string text;
  const char* error;
};

void PrintTo(const BrokenCase& tested, std::ostream* out) { *out << tested.name; }

class BrokenCsvTable : public testing::TestWithParam<BrokenCase> {};

TEST_P(BrokenCsvTable, isRefused) {
  CsvTable table;
  FXString error;
  ASSERT_TRUE(table.read("a,b\n1,2\n", error));
  EXPECT_FALSE(table.read(FXString(GetParam().text.data(), static_cast<FXint>(GetParam().text.size())), error));
  EXPECT_EQ(std::string(error.text()).substr(0, std::string(GetParam().error).size()), GetParam().error);
  EXPECT_TRUE(table.getHeader().cells.empty());
  EXPECT_TRUE(table.getLines().empty());
}

INSTANTIATE_TEST_SUITE_P(
    CsvTable, BrokenCsvTable,
    testing::Values(BrokenCase{"empty", "", "A táblázat üres"}, BrokenCase{"lineEndsOnly", "\r\n\n", "A táblázat üres"},
                    BrokenCase{"byteOrderMarkOnly", "\xEF\xBB\xBF", "A táblázat üres"},
                    BrokenCase{"openQuote", "a,b\n1,\"2\n3\n", "2. sor: az idézőjelek"},
                    BrokenCase{"openQuoteInTheHeader", "\"a,b\n1,2\n", "1. sor: az idézőjelek"},
                    BrokenCase{"quoteInsideACell", "a,b\n1,2\n\n5\" pipe,3\n", "4. sor: az idézőjelek"},
                    BrokenCase{"textBehindAQuote", "a,b\n\"1\"x,2\n", "2. sor: az idézőjelek"},
                    BrokenCase{"blankBehindAQuote", "a,b\n\"1\" ,2\n", "2. sor: az idézőjelek"},
                    BrokenCase{"twoBytesACharacter",
                               std::string("\xFF\xFE"
                                           "a\0\n\0",
                                           6),
                               "A táblázat nem UTF-8"}),
    [](const testing::TestParamInfo<BrokenCase>& tested) { return tested.param.name; });

TEST(CsvTable, findsTheSeparatorInTheHeader) {
  EXPECT_EQ(CsvTable::findSeparator("a"), ',');
  EXPECT_EQ(CsvTable::findSeparator("a,b\n1;2\t3"), ',');
  EXPECT_EQ(CsvTable::findSeparator("a,b;c"), ';');
  EXPECT_EQ(CsvTable::findSeparator("a,b;c\td"), '\t');
  EXPECT_EQ(CsvTable::findSeparator("\"a;b\tc\",d"), ',');
  EXPECT_EQ(CsvTable::findSeparator("\"a\nb;c\",d\n;"), ',');
  EXPECT_EQ(CsvTable::findSeparator("\n\r\na;b\n"), ';');
  EXPECT_EQ(CsvTable::findSeparator(""), ',');
}

TEST(CsvTable, forgetsWhatItReadBefore) {
  CsvTable table;
  FXString error;
  ASSERT_TRUE(table.read("a,b\n1,2\n", error));
  ASSERT_TRUE(table.read("c\n", error));
  EXPECT_EQ(texts(table.getHeader()), Cells({"c"}));
  EXPECT_TRUE(table.getLines().empty());
}

}  // namespace
}  // namespace Quillane::Commands
