// Tests of what a list writes for others: XML and printable text.
#include <gtest/gtest.h>

#include <memory>

#include "itemdata/CountingList.h"
#include "itemdata/ItemDataList.h"
#include "plugin/contract/XMLBuilder.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "tests/itemdata/XmlLines.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataListOutput : public ItemDataTest {
 protected:
  ItemDataListOutput() {
    declare({{11, "A"},
             {12, "B", ItemDataEntry::TYPE_LIST, 0, 0, "x,y"},
             {13, "C", ItemDataEntry::TYPE_TEXT, 1},
             {14, "D", ItemDataEntry::TYPE_TEXT, 1}});
    item = newItem(10);
  }

  std::string printed(const Lines& entries) {
    ItemDataList list(item, nullptr);
    fill(list, entries);
    return text(list.getPrintableText());
  }

  InvoiceItem* item;  // owned by the document
};

// ---- XML

const std::string kElement = "{urn:quillane:plugin:itemdata}itemdata";

TEST_F(ItemDataListOutput, xmlHoldsEveryEntryInListOrder) {
  ItemDataList list(item, nullptr);
  fill(list, {"0 11 'abc'", "1 -1 '2'", "1 13 'c'"});
  XMLBuilder::Document document("urn:test", "item");
  list.toXml(document.getRoot());
  EXPECT_EQ(xmlLines(document),
            Lines({"{urn:test}item", "  " + kElement, "    " + kElement + " row=0 name=A 'abc'",
                   "    " + kElement + " row=1 name=Mennyiség '2'", "    " + kElement + " row=1 name=C 'c'"}));
}

TEST_F(ItemDataListOutput, xmlIsWrittenUnderThePrefixItemdata) {
  ItemDataList list(item, nullptr);
  fill(list, {"0 11 'abc'"});
  XMLBuilder::Document document("urn:test", "item");
  list.toXml(document.getRoot());
  const std::string xml = text(document.toText());
  EXPECT_NE(xml.find("xmlns:itemdata=\"urn:quillane:plugin:itemdata\""), std::string::npos) << xml;
  EXPECT_NE(xml.find("<itemdata:itemdata row=\"0\" name=\"A\">abc</itemdata:itemdata>"), std::string::npos) << xml;
}

TEST_F(ItemDataListOutput, keepsMarkedEntriesWithEmptyTextInXml) {
  ItemDataList list(item, nullptr);
  fill(list, {"1 -1 '2' #1", "1 13 'c' #2", "null", "2 -1 '1' #3"});
  list.markRowForDelete(1);
  XMLBuilder::Document document("urn:test", "item");
  list.toXml(document.getRoot());
  EXPECT_EQ(xmlLines(document),
            Lines({"{urn:test}item", "  " + kElement, "    " + kElement + " row=1 name=Mennyiség",
                   "    " + kElement + " row=1 name=C", "    " + kElement + " row=2 name=Mennyiség '1'"}));
}

TEST_F(ItemDataListOutput, xmlOfAnEmptyListIsAnEmptyElement) {
  const ItemDataList list(item, nullptr);
  XMLBuilder::Document document("urn:test", "item");
  list.toXml(document.getRoot());
  EXPECT_EQ(xmlLines(document), Lines({"{urn:test}item", "  " + kElement}));
}

TEST_F(ItemDataListOutput, keepsTheBlankChoiceInXml) {
  ItemDataList list(item, nullptr);
  fill(list, {"0 12 ' '"});
  XMLBuilder::Document document("urn:test", "item");
  list.toXml(document.getRoot());
  const std::string xml = text(document.toText());
  EXPECT_NE(xml.find("name=\"B\"> </itemdata:itemdata>"), std::string::npos) << xml;
}

TEST_F(ItemDataListOutput, xmlOfTwoItemsStandsUnderOneNamespace) {
  ItemDataList list(item, nullptr);
  fill(list, {"0 11 'abc'"});
  XMLBuilder::Document document("urn:test", "invoice");
  list.toXml(document.getRoot()->createElement("urn:test", "item"));
  list.toXml(document.getRoot()->createElement("urn:test", "item"));
  EXPECT_EQ(xmlLines(document), Lines({"{urn:test}invoice", "  {urn:test}item", "    " + kElement,
                                       "      " + kElement + " row=0 name=A 'abc'", "  {urn:test}item",
                                       "    " + kElement, "      " + kElement + " row=0 name=A 'abc'"}));
}

TEST_F(ItemDataListOutput, hostileValuesGiveWellFormedXml) {
  for (const std::string& value : {std::string("<&>\"'"), std::string("]]>"), std::string("\x01\x02"),
                                   std::string("\xff\xfe"), std::string(100 * 1000, '&')}) {
    declare({{11, "<A & \"B\">"}});
    ItemDataList list(item, nullptr);
    fill(list, {"0 11 ''"});
    list[0]->value = FXString(value.data(), static_cast<FXint>(value.size()));
    XMLBuilder::Document document("urn:test", "item");
    list.toXml(document.getRoot());
    EXPECT_EQ(xmlLines(document).size(), 3u);
  }
}

// ---- printable text with unit rows

TEST_F(ItemDataListOutput, unitRowsPrintQuantityAndValues) {
  struct Case {
    const char* sentence;
    Lines entries;
    const char* printed;
  };
  for (const Case& c : {
           Case{"the whole layout",
                {"0 11 'X'", "1 -1 '3'", "1 13 'A'", "1 14 'B'", "2 -1 '2'", "2 13 'C'"},
                "X; 3 db A, B; 2 db C"},
           Case{"several per-item values", {"0 11 'X'", "0 12 'Y'", "1 -1 '3'"}, "X; Y; 3 db"},
           Case{"no per-item value", {"1 -1 '3'", "1 13 'A'"}, "3 db A"},
           Case{"a quantity of one", {"0 11 'X'", "1 -1 '1'", "1 13 'A'", "1 14 'B'"}, "X; A, B"},
           Case{"a quantity of zero", {"0 11 'X'", "1 -1 '0'", "1 13 'A'"}, "X; A"},
           Case{"an empty quantity", {"0 11 'X'", "1 -1 ''", "1 13 'A'"}, "X; A"},
           Case{"quantities of one only", {"1 -1 '1'", "2 -1 '1'"}, ""},
           Case{"an empty first value", {"1 -1 '3'", "1 13 ''", "1 14 'B'"}, "3 db B"},
           Case{"an empty value between", {"0 11 'X'", "0 12 ''", "1 -1 '3'", "1 13 'A'", "1 14 ''"}, "X; 3 db A"},
           Case{"a row without anything",
                {"1 -1 '2'", "1 13 'A'", "2 -1 '1'", "2 13 ''", "3 -1 '1'", "3 13 'C'"},
                "2 db A; C"},
           Case{"a row number that is skipped", {"1 -1 '2'", "5 -1 '3'", "5 13 'C'"}, "2 db; 3 db C"},
           Case{"a marked row", {"1 -1 '2' #1", "1 13 'A' #2", "2 -1 '' #3 marked", "2 13 '' #4 marked"}, "2 db A"},
           Case{"a marked row between",
                {"1 -1 '2'", "1 13 'A'", "2 -1 '' #3 marked", "2 13 '' #4 marked", "3 -1 '2'", "3 13 'C'"},
                "2 db A; 2 db C"},
           Case{"a marked value", {"1 -1 '2'", "1 13 '' #1 marked", "1 14 'B'"}, "2 db B"},
           Case{"a marked entry that has a value again", {"1 -1 '2'", "1 13 'A' #1 marked"}, "2 db A"},
           Case{"null places", {"null", "0 11 'X'", "null", "1 -1 '2'", "null", "1 13 'A'", "null"}, "X; 2 db A"},
           Case{"equal texts are not counted", {"1 -1 '1'", "1 13 'A'", "2 -1 '1'", "2 13 'A'"}, "A; A"},
           Case{"values before the quantity", {"1 13 'A'", "1 -1 '2'", "1 14 'B'"}, "A, 2 db B"},
           Case{"per-item values after a row", {"1 -1 '2'", "0 11 'X'", "1 13 'A'"}, "2 db; X; A"},
           Case{"a per-item quantity", {"1 -1 '2'", "0 -1 '3'", "0 11 'X'"}, "2 db; 3 db; X"},
       }) {
    EXPECT_EQ(printed(c.entries), c.printed) << c.sentence;
  }
}

TEST_F(ItemDataListOutput, unitTextFollowsTheQuantity) {
  item->setUnit("pcs");
  EXPECT_EQ(printed({"0 11 'X'", "1 -1 '3'", "1 13 'A'", "1 14 'B'", "2 -1 '2'", "2 13 'C'"}),
            "X; 3 pcs A, B; 2 pcs C");
}

// ---- printable text without a quantity column

TEST_F(ItemDataListOutput, textsWithoutUnitRowsAreListedOrCounted) {
  struct Case {
    const char* sentence;
    Lines entries;
    const char* printed;
  };
  for (const Case& c : {
           Case{"nothing", {}, ""},
           Case{"empty values only", {"0 11 ''", "0 11 ''"}, ""},
           Case{"one", {"0 11 'A'"}, "A"},
           Case{"distinct", {"0 11 'A'", "0 11 'B'"}, "A, B"},
           Case{"one twice", {"0 11 'A'", "0 11 'B'", "0 11 'A'"}, "A (2 db), B (1 db)"},
           Case{"all equal", {"0 11 'A'", "0 11 'A'", "0 11 'A'"}, "A (3 db)"},
           Case{"in the order of first appearance",
                {"0 11 'C'", "0 11 'A'", "0 11 'B'", "0 11 'A'", "0 11 'C'", "0 11 'A'"},
                "C (2 db), A (3 db), B (1 db)"},
           Case{"empty values between", {"0 11 ''", "0 11 'A'", "0 11 ''", "0 11 'A'", "0 11 ''"}, "A (2 db)"},
           Case{"case and blanks count", {"0 11 'a'", "0 11 'A'", "0 11 'a '"}, "a, A, a "},
           Case{"rows do not matter", {"1 13 'A'", "2 13 'A'"}, "A (2 db)"},
           Case{"marked quantities are none", {"1 -1 '' #1 marked", "1 13 'A'", "2 13 'A'"}, "A (2 db)"},
           Case{"null places", {"null", "0 11 'A'", "null", "0 11 'B'"}, "A, B"},
           Case{"formats in the text", {"0 11 '%s %d'", "0 11 '%s %d'"}, "%s %d (2 db)"},
       }) {
    EXPECT_EQ(printed(c.entries), c.printed) << c.sentence;
  }
}

TEST_F(ItemDataListOutput, unitTextFollowsTheCount) {
  item->setUnit("unit");
  EXPECT_EQ(printed({"0 11 'A'", "0 11 'B'", "0 11 'A'"}), "A (2 unit), B (1 unit)");
  item->setUnit("");
  EXPECT_EQ(printed({"0 11 'A'", "0 11 'A'"}), "A (2 )");
  item->setUnit("%d");
  EXPECT_EQ(printed({"0 11 'A'", "0 11 'A'"}), "A (2 %d)");
}

TEST_F(ItemDataListOutput, longTextsAreWrittenWhole) {
  const std::string large(100 * 1000, 'x');
  EXPECT_TRUE(printed({"0 11 '" + large + "'", "0 11 'B'", "0 11 'B'"}) == large + " (1 db), B (2 db)");
  EXPECT_TRUE(printed({"1 -1 '2'", "1 13 '" + large + "'"}) == "2 db " + large);
}

TEST_F(ItemDataListOutput, printsThousandsOfDistinctTexts) {
  constexpr int kTexts = 5000;
  ItemDataList list(item, nullptr);
  for (int i = 0; i < kTexts; ++i) {
    ItemDataEntry* entry = newEntry("0 11 ''", item);
    entry->value = FXStringVal(i);
    list.append(entry);
  }
  const FXString line = list.getPrintableText();
  EXPECT_EQ(text(line).substr(0, 10), "0, 1, 2, 3");
}

TEST_F(ItemDataListOutput, countsManyTextsInTheOrderOfTheirFirstAppearance) {
  constexpr int kTexts = 300;
  Lines entries;
  std::string expected;
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < kTexts; ++i) entries.push_back("0 11 'SN-" + std::to_string(i) + "'");
  }
  for (int i = 0; i < kTexts; ++i) expected += (i ? ", SN-" : "SN-") + std::to_string(i) + " (3 db)";
  EXPECT_EQ(printed(entries), expected);
}

TEST(CountingList, ownsItsPairs) {
  struct Counted : FXExt::FXPair<FXString, int> {
    explicit Counted(int& counter) : living(counter) { ++living; }
    ~Counted() override { --living; }
    int& living;
  };
  int living = 0;
  {
    CountingList list;
    list.append(new Counted(living));
    list.append(new Counted(living));
    EXPECT_EQ(living, 2);
  }
  EXPECT_EQ(living, 0);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
