// Matching tables with the fields of an item. What is refused, and with which sentence, is tested with the command.
#include "host/command/ItemDataSheet.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

using namespace FX;

namespace Quillane::Commands {
namespace {

using Row = std::tuple<int, int, std::string>;  // row, variable, value
using Rows = std::vector<Row>;

constexpr int kText = 1;
constexpr int kList = 3;

/// Two fields for the item, two for the unit; the lists of choices have blanks and an empty piece in them.
const std::vector<AssignedVariable> kFields = {{10, "Megjegyzés", kText, false, ""},
                                               {11, "Mód", kList, false, "futár, posta,,csomagpont"},
                                               {20, "Gyári szám", kText, true, ""},
                                               {21, "Szín", kList, true, " kék ,zöld"}};

const std::vector<AssignedVariable> kItemFields(kFields.begin(), kFields.begin() + 2);

class ItemDataSheetTest : public testing::Test {
 protected:
  bool read(const std::vector<AssignedVariable>& fields, const std::string& text) {
    CsvTable table;
    EXPECT_TRUE(table.read(text.c_str(), error)) << error.text();
    ItemDataSheet sheet(fields, {"Mennyiség"});
    const bool readable = sheet.read(table, error);
    rowCount = sheet.getRowCount();
    rows.clear();
    for (const RecordedValue& value : sheet.getValues())
      rows.emplace_back(value.row, value.variable, value.value.text());
    return readable;
  }

  Rows rows;
  int rowCount = 0;
  FXString error;
};

TEST_F(ItemDataSheetTest, takesFieldsOfTheItemFirst) {
  ASSERT_TRUE(read(kFields, "Gyári szám;Mennyiség;Megjegyzés;Szín;Mód\nA;2;m;kék;posta\nB;3;;zöld;\n"));
  EXPECT_EQ(rows, Rows({{0, 10, "m"},
                        {0, 11, "posta"},
                        {1, -1, "2"},
                        {1, 20, "A"},
                        {1, 21, "kék"},
                        {2, -1, "3"},
                        {2, 20, "B"},
                        {2, 21, "zöld"}}));
  EXPECT_EQ(rowCount, 2);
}

TEST_F(ItemDataSheetTest, givesEveryFieldAValue) {
  ASSERT_TRUE(read(kFields, "Gyári szám\nA\n"));
  EXPECT_EQ(rows, Rows({{0, 10, ""}, {0, 11, ""}, {1, -1, "1"}, {1, 20, "A"}, {1, 21, ""}}));
}

TEST_F(ItemDataSheetTest, givesFieldsOfTheItemAValueWithoutAnyLine) {
  ASSERT_TRUE(read(kFields, "Gyári szám\n"));
  EXPECT_EQ(rows, Rows({{0, 10, ""}, {0, 11, ""}}));
  EXPECT_EQ(rowCount, 0);
}

TEST_F(ItemDataSheetTest, leavesZerosOut) {
  ASSERT_TRUE(read(kFields, "Mennyiség;Gyári szám;Megjegyzés\n0;0;0\n00;0 ;x\n"));
  EXPECT_EQ(rows, Rows({{0, 11, ""}, {1, 21, ""}, {2, -1, "00"}, {2, 20, "0 "}, {2, 21, ""}}));
  EXPECT_EQ(rowCount, 2);
}

TEST_F(ItemDataSheetTest, comparesNamesAndChoicesWithoutTheBlanksAroundThem) {
  ASSERT_TRUE(read(kFields, " Gyári szám ;  Szín\n A ; kék  \n"));
  EXPECT_EQ(rows[3], Row(1, 20, " A "));
  EXPECT_EQ(rows[4], Row(1, 21, "kék"));
}

TEST_F(ItemDataSheetTest, takesABlankAsNothingChosen) {
  ASSERT_TRUE(read(kFields, "Szín;Mód\n ;  \n"));
  EXPECT_EQ(rows, Rows({{0, 10, ""}, {0, 11, ""}, {1, -1, "1"}, {1, 20, ""}, {1, 21, ""}}));
}

TEST_F(ItemDataSheetTest, takesOneLineForTheItem) {
  ASSERT_TRUE(read(kItemFields, "Mód;Megjegyzés\ncsomagpont;m\n"));
  EXPECT_EQ(rows, Rows({{0, 10, "m"}, {0, 11, "csomagpont"}}));
  EXPECT_EQ(rowCount, 0);
}

TEST_F(ItemDataSheetTest, hasNoValuesWhenTheTableIsRefused) {
  for (const char* text : {"Szín\nkék\nzöld\nlila\n", "Szín;x\nkék;1\n", "Szín\nkék;zöld\n", "Szín;Szín\nkék;kék\n"}) {
    EXPECT_FALSE(read(kFields, text)) << text;
    EXPECT_TRUE(rows.empty()) << text;
    EXPECT_EQ(rowCount, 0) << text;
    EXPECT_FALSE(error.empty()) << text;
  }
}

TEST_F(ItemDataSheetTest, doesNotTakeOneFieldForAnother) {
  EXPECT_FALSE(read(kFields, "Gyári\nA\n"));
  EXPECT_FALSE(read(kFields, "Szín\nkék, zöld\n"));
  EXPECT_FALSE(read(kFields, "Szín\nké\n"));
  EXPECT_FALSE(read(kItemFields, "Mennyiség\n1\n"));
}

TEST_F(ItemDataSheetTest, keepsFieldsOfTheItemFromTheFirstLineOnly) {
  ASSERT_TRUE(read(kFields, "Mód;Gyári szám\nposta;A\nnincs ilyen;B\n"));
  EXPECT_EQ(rows[1], Row(0, 11, "posta"));
  EXPECT_FALSE(read(kFields, "Mód;Gyári szám\nnincs ilyen;A\n"));
}

TEST_F(ItemDataSheetTest, acceptsEveryNameOfTheQuantity) {
  CsvTable table;
  ASSERT_TRUE(table.read("Darab\n5\n", error));
  ItemDataSheet sheet(kFields, {"Mennyiség", "Darab"});
  ASSERT_TRUE(sheet.read(table, error));
  EXPECT_STREQ(sheet.getValues()[2].value.text(), "5");
}

}  // namespace
}  // namespace Quillane::Commands
