// Chains of documents as people make them, with the real module keeping item data on them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "fxext/FXDecimal.h"
#include "host/xml/DocumentXml.h"
#include "plugin/contract/Statement.h"
#include "tests/host/document/LivingCompany.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace Quillane::Host {
namespace {

constexpr int kQuantity = LivingCompany::kQuantity;
constexpr int kWarranty = LivingCompany::kWarranty;
constexpr int kNote = LivingCompany::kNote;
constexpr int kSerial = LivingCompany::kSerial;
constexpr int kColour = LivingCompany::kColour;

class DocumentChain : public testing::Test {
 protected:
  /// The closed delivery note of five boilers in two unit rows, of 3 and of 2.
  int deliverFive() {
    const int note = company.add(401, {{LivingCompany::BOILER, "5"}});
    company.record(company.itemOf(note), {{0, kNote, "sürgős"},
                                          {1, kQuantity, "3"},
                                          {1, kWarranty, "24 hó"},
                                          {1, kSerial, "A-1"},
                                          {2, kQuantity, "2"},
                                          {2, kWarranty, "12 hó"},
                                          {2, kSerial, "B-2"}});
    company.mustMove(note, 451);
    return note;
  }

  /// The user leaves one row alone on a draft, and lets the item's quantity follow.
  void keepRow(int document, int row, const std::string& quantity) {
    const std::string item = std::to_string(company.itemOf(document));
    company.run("delete from t_invoiceitemdata where row>0 and row<>" + std::to_string(row) +
                " and t_invoiceitem_1=" + item);
    setQuantity(document, quantity);
  }

  void setQuantity(int document, const std::string& quantity) {
    company.run("update t_invoiceitem set quantity='" + quantity + "' where t_invoice_1=" + std::to_string(document));
  }

  /// The rows of quantities that a new document of this status gets from source, as they arrive before anything is
  /// stored: "1=3 2=0".
  std::string arrivingRows(int sourceItem, int status = 101) {
    FXString error;
    const auto draft = company.getStore().make(status, error);
    EXPECT_NE(draft, nullptr) << error.text();
    DocumentItem* item = draft->addItem();
    item->setArticle(1, std::stoi(company.query("select articleid from t_invoiceitem where t_invoiceitem_id=" +
                                                std::to_string(sourceItem))));
    item->setOrigin(InvoiceItem::ORIGIN_DERIVING, sourceItem);
    company.getStore().loadAttached(*item);
    const std::string xml = documentToXml(*draft, LivingCompany::getHooks()).text();
    std::string rows;
    const std::string name = "\" name=\"Mennyiség\"";
    for (auto at = xml.find(name); at != std::string::npos; at = xml.find(name, at + 1)) {
      const auto row = xml.rfind('"', at - 1) + 1;
      const auto value = at + name.size();
      rows += (rows.empty() ? "" : " ") + xml.substr(row, at - row) + "=";
      if (xml[value] == '>') rows += xml.substr(value + 1, xml.find('<', value) - value - 1);
    }
    return rows;
  }

  /// What is open of the first item of source: the item's quantity and that of its rows, which have to agree; "none"
  /// when nothing can be derived. The draft that was made to find out is deleted again.
  std::string open(int source, int status = 101) {
    const std::string rows = arrivingRows(company.itemOf(source), status);
    int draft = 0;
    const std::string refusal = company.derive(source, status, draft);
    if (!draft) {
      EXPECT_THAT(refusal, HasSubstr("Egyetlen tételének sincs nyitott mennyisége"));
      return "none: " + rows;
    }
    const std::string quantity = company.quantityOf(company.itemOf(draft));
    FXExt::FXDecimal sum(0, 0, 4);
    std::istringstream words(rows);
    for (std::string row; words >> row;) sum += FXExt::FXDecimal(row.substr(row.find('=') + 1).c_str(), 4);
    EXPECT_EQ(sum.toString(), quantity.c_str()) << "the rows and the item do not agree";
    EXPECT_EQ(company.remove(draft), "");
    return quantity + ": " + rows;
  }

  std::string noteOf(int item) {
    return company.query("select value from t_invoiceitemdata where t_itemvariable_1=11 and t_invoiceitem_1=" +
                         std::to_string(item));
  }

  LivingCompany company;
};

TEST_F(DocumentChain, invoicesADeliveryNoteInPartsAndGetsACancelledPartBack) {
  const int note = deliverFive();
  EXPECT_EQ(open(note), "5: 1=3 2=2");

  const int first = company.derive(note, 101);
  keepRow(first, 2, "2");
  EXPECT_EQ(open(note), "5: 1=3 2=2") << "a draft takes nothing";
  company.mustMove(first, 151);
  EXPECT_EQ(open(note), "3: 1=3 2=0");

  const int second = company.derive(note, 101);
  EXPECT_EQ(company.quantityOf(company.itemOf(second)), "3");
  company.mustMove(second, 151);
  EXPECT_EQ(open(note), "none: 1=0 2=0");

  const int cancelling = company.derive(first, 152);
  EXPECT_EQ(open(note), "2: 1=0 2=2");
  EXPECT_EQ(company.query("select t_invoice_1 from t_invoice where t_invoice_id=" + std::to_string(cancelling)),
            std::to_string(first));

  const int third = company.derive(note, 101);
  EXPECT_EQ(company.quantityOf(company.itemOf(third)), "2");
  company.mustMove(third, 151);
  EXPECT_EQ(open(note), "none: 1=0 2=0");
  EXPECT_THAT(company.queryLines("select t_invoicestatus_1, number from t_invoice where t_invoicestatus_1>=151 and "
                                 "t_invoicestatus_1<=452 order by t_invoice_id"),
              ElementsAre("451 1", "151 1", "151 2", "152 1", "151 3"));
}

TEST_F(DocumentChain, copiesPerItemAndPerUnitValuesAndStartsFreshKeys) {
  const int note = deliverFive();
  const int invoice = company.derive(note, 101);
  const int item = company.itemOf(invoice);
  EXPECT_THAT(company.valuesOf(item), ElementsAre("0 11 'sürgős'", "1 -1 '3'", "1 2 '24 hó'", "1 12 'A-1'", "2 -1 '2'",
                                                  "2 2 '12 hó'", "2 12 'B-2'"));
  EXPECT_THAT(company.queryLines("select name, unit, price, quantity, articlekind, articleid, originmode, "
                                 "t_invoiceitem_1 from t_invoiceitem where t_invoice_1=" +
                                 std::to_string(invoice)),
              ElementsAre("Kazán db 100000 5 1 1 2 " + std::to_string(company.itemOf(note))));
  EXPECT_THAT(
      company.queryLines("select t_invoicestatus_1, statusgate, t_partner_1, t_invoice_1, version, number || '.'"
                         ", issuedate=date('now', 'localtime') from t_invoice where t_invoice_id=" +
                         std::to_string(invoice)),
      ElementsAre("101 1 1 NULL 1 . 1"));
}

TEST_F(DocumentChain, keepsOtherValuesOfARowThatIsUsedUpButNotItsQuantityAndNotVariableTwo) {
  const int note = deliverFive();
  const int first = company.derive(note, 101);
  keepRow(first, 2, "2");
  company.mustMove(first, 151);
  const int second = company.derive(note, 101);
  EXPECT_THAT(company.valuesOf(company.itemOf(second)),
              ElementsAre("0 11 'sürgős'", "1 -1 '3'", "1 2 '24 hó'", "1 12 'A-1'", "2 12 'B-2'"));
}

TEST_F(DocumentChain, keepsCancelledQuantitiesOutOfRowsThatNoClosedInvoiceTookFrom) {
  const int note = deliverFive();
  const int first = company.derive(note, 101);
  keepRow(first, 2, "2");
  company.mustMove(first, 151);
  const int cancelling = company.derive(first, 152);
  EXPECT_EQ(arrivingRows(company.itemOf(note)), "1=3 2=2");
  // Another program says that row 1 was given back, from which nothing was taken.
  company.run("update t_invoiceitemdata set row=1 where t_invoiceitem_1=" + std::to_string(company.itemOf(cancelling)));
  EXPECT_EQ(arrivingRows(company.itemOf(note)), "1=3 2=0");
}

TEST_F(DocumentChain, leavesNothingOfThreeTenthsLessOneAndTwoTenths) {
  const int note = company.add(451, {{LivingCompany::BOILER, "0.3"}});
  company.record(company.itemOf(note), {{1, kQuantity, "0.3"}, {1, kSerial, "A-1"}});
  for (const char* part : {"0.1", "0.2"}) {
    const int invoice = company.derive(note, 101);
    setQuantity(invoice, part);
    company.run("update t_invoiceitemdata set value='" + std::string(part) +
                "' where t_itemvariable_1=-1 and "
                "t_invoiceitem_1=" +
                std::to_string(company.itemOf(invoice)));
    company.mustMove(invoice, 151);
    EXPECT_EQ(open(note), part == std::string("0.1") ? "0.2: 1=0.2" : "none: 1=0");
  }
}

TEST_F(DocumentChain, leavesItemsWithNothingOpenOut) {
  const int order = company.add(801, {{LivingCompany::BOILER, "1"},
                                      {LivingCompany::STRING, "7.5"},
                                      {LivingCompany::VALVE, "2"},
                                      {LivingCompany::PAINTING, "0"}});
  const int first = company.derive(order, 101);
  EXPECT_THAT(company.queryLines("select position, name, quantity from t_invoiceitem where t_invoice_1=" +
                                 std::to_string(first) + " order by position"),
              ElementsAre("1 Kazán 1", "2 Zsinór 7.5", "3 Szelep 2"));
  company.run("delete from t_invoiceitem where t_invoice_1=" + std::to_string(first) + " and position<>2");
  company.mustMove(first, 151);
  const int second = company.derive(order, 101);
  EXPECT_THAT(company.queryLines("select position, name, quantity from t_invoiceitem where t_invoice_1=" +
                                 std::to_string(second) + " order by position"),
              ElementsAre("1 Kazán 1", "2 Szelep 2"));
}

TEST_F(DocumentChain, countsEachFamilyByItself) {
  const int order = company.add(801, {{LivingCompany::STRING, "10"}});
  const int note = company.derive(order, 401);
  setQuantity(note, "4");
  company.mustMove(note, 451);
  int draft = company.derive(order, 401);
  EXPECT_EQ(company.quantityOf(company.itemOf(draft)), "6");
  draft = company.derive(order, 101);
  EXPECT_EQ(company.quantityOf(company.itemOf(draft)), "10") << "delivery notes take nothing from invoices";
  company.derive(note, 452);
  draft = company.derive(order, 401);
  EXPECT_EQ(company.quantityOf(company.itemOf(draft)), "10");
}

TEST_F(DocumentChain, goesOnFromADerivedDocumentInItsTurn) {
  const int order = company.add(801, {{LivingCompany::BOILER, "5"}});
  company.record(company.itemOf(order), {{0, kNote, "kék"}, {1, kQuantity, "5"}, {1, kSerial, "S"}});
  const int note = company.derive(order, 401);
  company.mustMove(note, 451);
  const int invoice = company.derive(note, 101);
  EXPECT_THAT(company.valuesOf(company.itemOf(invoice)), ElementsAre("0 11 'kék'", "1 -1 '5'", "1 12 'S'"));
  company.mustMove(invoice, 151);
  company.derive(invoice, 152);
  EXPECT_EQ(open(note), "5: 1=5");
  EXPECT_EQ(open(order, 101), "5: 1=5") << "the invoice took from the delivery note, not from the order";
}

TEST_F(DocumentChain, derivesIncomingDocuments) {
  const int received = company.add(202, {{LivingCompany::BOILER, "2"}});
  company.record(company.itemOf(received), {{1, kQuantity, "2"}, {1, kSerial, "X"}});
  const int draft = company.derive(received, 201);
  EXPECT_THAT(company.valuesOf(company.itemOf(draft)), ElementsAre("0 11 ''", "1 -1 '2'", "1 12 'X'"));
  company.mustMove(draft, 251);
  const int cancelling = company.derive(draft, 252);
  EXPECT_THAT(company.valuesOf(company.itemOf(cancelling)), ElementsAre("0 11 ''", "1 -1 '2'", "1 12 'X'"));
  EXPECT_EQ(company.quantityOf(company.itemOf(company.derive(received, 201))), "2");
}

TEST_F(DocumentChain, loadsItsOwnRowsOnceItIsStored) {
  const int note = company.add(401, {{LivingCompany::BOILER, "5"}});
  const int noteItem = company.itemOf(note);
  company.record(noteItem, {{0, kNote, "régi"}, {1, kQuantity, "5"}, {1, kSerial, "A-1"}});
  const int invoice = company.derive(note, 101);
  company.run("update t_invoiceitemdata set value='új' where t_itemvariable_1=11 and t_invoiceitem_1=" +
              std::to_string(noteItem));
  company.run("delete from t_invoiceitemdata where row>0 and t_invoiceitem_1=" + std::to_string(noteItem));
  const std::string xml = documentToXml(*company.load(invoice), LivingCompany::getHooks()).text();
  EXPECT_THAT(xml, HasSubstr(">régi<"));
  EXPECT_THAT(xml, HasSubstr(">A-1<"));
  const Lines before = company.valuesOf(company.itemOf(invoice));
  FXString error;
  EXPECT_TRUE(company.getStore().save(*company.load(invoice), error)) << error.text();
  EXPECT_EQ(company.valuesOf(company.itemOf(invoice)), before);
}

TEST_F(DocumentChain, keepsTakingTheRowsOfTheSourceOnAStoredItemThatStillHasTheModeOfDeriving) {
  const int note = company.add(401, {{LivingCompany::VALVE, "3"}});
  company.record(company.itemOf(note),
                 {{1, kQuantity, "2"}, {1, kSerial, "A"}, {2, kQuantity, "1"}, {2, kSerial, "B"}});
  const int invoice = company.add(101, {{LivingCompany::VALVE, "3"}});
  const int item = company.itemOf(invoice);
  company.run("update t_invoiceitem set originmode=1, t_invoiceitem_1=" + std::to_string(company.itemOf(note)) +
              " where t_invoiceitem_id=" + std::to_string(item));
  company.record(item, {{1, kQuantity, "9"}, {3, kSerial, "eigen"}});
  // The source says which rows and variables there are; what is in them comes from the item's own rows.
  const std::string xml = documentToXml(*company.load(invoice), LivingCompany::getHooks()).text();
  EXPECT_THAT(xml, HasSubstr("row=\"1\" name=\"Mennyiség\">9<"));
  EXPECT_THAT(xml, HasSubstr("row=\"2\" name=\"Gyári szám\""));
  EXPECT_THAT(xml, Not(HasSubstr(">A<")));
  EXPECT_THAT(xml, Not(HasSubstr("eigen")));
}

TEST_F(DocumentChain, repeatsEveryRecordedValueOnACancellingDocument) {
  const int note = company.add(401, {{LivingCompany::BOILER, "9"},
                                     {LivingCompany::STRING, "1 234,50"},
                                     {LivingCompany::VALVE, "1"},
                                     {LivingCompany::PAINTING, "2"}});
  // Gaps between the rows, empty values, a row with a quantity only.
  company.record(company.itemOf(note, 1), {{0, kNote, ""},
                                           {2, kQuantity, "4"},
                                           {2, kWarranty, ""},
                                           {2, kSerial, "B"},
                                           {5, kQuantity, "4"},
                                           {5, kSerial, "C"},
                                           {7, kQuantity, "1"}});
  company.record(company.itemOf(note, 3), {{1, kQuantity, "1"}, {1, kSerial, "D"}});
  company.record(company.itemOf(note, 4), {{0, kColour, "kék"}});
  company.mustMove(note, 451);

  const int cancelling = company.derive(note, 452);
  for (int number = 1; number <= 4; ++number)
    EXPECT_EQ(company.valuesOf(company.itemOf(cancelling, number)), company.valuesOf(company.itemOf(note, number)));
  EXPECT_THAT(company.valuesOf(company.itemOf(cancelling, 1)),
              ElementsAre("0 11 ''", "2 -1 '4'", "2 2 ''", "2 12 'B'", "5 -1 '4'", "5 12 'C'", "7 -1 '1'"));
  EXPECT_THAT(company.queryLines("select name, quantity, price, unit, originmode, t_invoiceitem_1 from t_invoiceitem "
                                 "where t_invoice_1=" +
                                 std::to_string(cancelling) + " order by position"),
              ElementsAre("Kazán 9 100000 db 0 NULL", "Zsinór 1 234,50 12.5 m 0 NULL", "Szelep 1 900 db 0 NULL",
                          "Festés 2 3000 m2 0 NULL"));
}

TEST_F(DocumentChain, keepsACancellingDeliveryNoteWithoutItemDataInMemory) {
  const int note = deliverFive();
  const int cancelling = company.derive(note, 452);
  EXPECT_THAT(company.valuesOf(company.itemOf(cancelling)), testing::SizeIs(7));
  EXPECT_THAT(documentToXml(*company.load(cancelling), LivingCompany::getHooks()).text(), Not(HasSubstr("itemdata")));
}

TEST_F(DocumentChain, carriesHostileTextsThrough) {
  const std::string hostile[] = {"'; drop table t_invoice; --", "%t_invoiceitem_1 %s %n %", "\\\"\r\n\t<&>]]>",
                                 "\xF0\x9F\xA6\x94 \xC3 \xFF\xFE", std::string(100000, 'x')};
  const int note = company.add(401, {{LivingCompany::BOILER, "1"}});
  std::vector<LivingCompany::Value> values = {{0, kNote, hostile[0]}, {1, kQuantity, "1"}, {1, kSerial, "s"}};
  company.record(company.itemOf(note), values);
  for (const std::string& text : hostile) {
    company.run("delete from t_invoiceitemdata where row=0");
    company.record(company.itemOf(note), {{0, kNote, text}});
    TarnwellDatabase& database = company.getDatabase();
    UpdateStatement rename(&database, "t_invoiceitem", "t_invoiceitem_id=%t_invoiceitem_id");
    rename.setInt("t_invoiceitem_id", company.itemOf(note));
    rename.setString("name", text.c_str());
    rename.setString("price", text.c_str());
    ASSERT_TRUE(rename.execute(nullptr, 1));

    const int invoice = company.derive(note, 101);
    const int item = company.itemOf(invoice);
    EXPECT_EQ(noteOf(item), text);
    for (const char* column : {"name", "price"})
      EXPECT_EQ(company.query("select " + std::string(column) +
                              " from t_invoiceitem where t_invoiceitem_id=" + std::to_string(item)),
                text);
    company.mustMove(invoice, 151);
    const int cancelling = company.derive(invoice, 152);
    EXPECT_EQ(noteOf(company.itemOf(cancelling)), text);
    EXPECT_EQ(company.query("select name from t_invoiceitem where t_invoice_1=" + std::to_string(cancelling)), text);
  }
}

TEST_F(DocumentChain, deletesWhatWasRecordedWithTheDocument) {
  const int note = deliverFive();
  const std::string before = company.dump();
  const int invoice = company.derive(note, 101);
  EXPECT_NE(company.dump(), before);
  EXPECT_EQ(company.remove(invoice), "");
  EXPECT_EQ(company.dump(), before);
}

TEST_F(DocumentChain, closesOnlyWhatTheModuleFindsComplete) {
  const int draft = company.add(101, {{LivingCompany::BOILER, "2"}});
  const int item = company.itemOf(draft);
  company.record(item, {{0, kNote, ""}, {1, kQuantity, "1"}, {1, kSerial, "A"}});
  const std::string before = company.dump();
  std::string refusal = company.move(draft, 151);
  EXPECT_THAT(refusal, HasSubstr("kevesebb, mint a tétellistában megadott"));
  EXPECT_THAT(refusal, HasSubstr("#" + std::to_string(draft)));
  EXPECT_EQ(company.dump(), before);
  company.record(item, {{2, kQuantity, "1"}, {2, kSerial, ""}});
  refusal = company.move(draft, 151);
  EXPECT_THAT(refusal, HasSubstr("Gyári szám"));
  company.run("update t_invoiceitemdata set value='B' where row=2 and t_itemvariable_1=12");
  EXPECT_EQ(company.move(draft, 151), "") << "the empty note is a notice only";
  EXPECT_EQ(company.query("select number from t_invoice where t_invoice_id=" + std::to_string(draft)), "1");
}

TEST_F(DocumentChain, movesAProFormaWithoutAskingForItemData) {
  const int proForma = company.add(102, {{LivingCompany::BOILER, "2"}});
  EXPECT_EQ(company.move(proForma, 101), "");
  EXPECT_NE(company.move(proForma, 151), "");
}

}  // namespace
}  // namespace Quillane::Host
