#include "host/document/DocumentWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Host {
namespace {

const char* const kItemSql =
    "select t_invoiceitem_id, t_invoice_1, position, articlekind, articleid, name, unit, quantity, price, originmode, "
    "t_invoiceitem_1 from t_invoiceitem order by 1";
const char* const kDocumentSql =
    "select t_invoice_id, number, partnernumber, t_invoicestatus_1, statusgate, issuedate, t_partner_1, t_invoice_1, "
    "version from t_invoice order by 1";

class DocumentWriterTest : public testing::Test {
 protected:
  DocumentWriterTest() {
    document.setStatus(101, false);
    document.setStatusGate(1);
    document.setIssueDate("2026-01-31");
    DocumentItem* item = document.addItem();
    item->setArticle(1, 5);
    item->setName("A");
    item->setUnit("db");
    item->setQuantityText("2.5");
    item->setPriceText("100");
  }

  TarnwellDatabase& database() { return *company.getDB(); }

  TestCompany company;
  Document document;
};

TEST_F(DocumentWriterTest, insertsNewRowsAndUpdatesThemAfterwards) {
  {
    DocumentWriter writer(database(), document);
    ASSERT_TRUE(writer.writeDocument());
    ASSERT_TRUE(writer.writeItem(*document.getItem(0), 1));
    writer.keepKeys();
  }
  EXPECT_EQ(document.getId(), 1);
  EXPECT_EQ(document.getItem(0)->getId(), 1);
  EXPECT_EQ(company.query(kDocumentSql), (Grid{{"1", "", "", "101", "1", "2026-01-31", "NULL", "NULL", "1"}}));
  EXPECT_EQ(company.query(kItemSql), (Grid{{"1", "1", "1", "1", "5", "A", "db", "2.5", "100", "0", "NULL"}}));

  document.setVersion(1);
  document.setStatus(151, true);
  document.setStatusGate(0);
  document.setPartnerNumber("P");
  document.getItem(0)->setName("B");
  DocumentWriter writer(database(), document);
  ASSERT_TRUE(writer.writeDocument());
  ASSERT_TRUE(writer.writeItem(*document.getItem(0), 2));
  EXPECT_EQ(company.query(kDocumentSql), (Grid{{"1", "", "P", "101", "1", "2026-01-31", "NULL", "NULL", "2"}}))
      << "status and gate are not its to change";
  EXPECT_EQ(company.query(kItemSql), (Grid{{"1", "1", "2", "1", "5", "B", "db", "2.5", "100", "0", "NULL"}}));
}

TEST_F(DocumentWriterTest, takesTheKeysAwayAgainUnlessTheyAreKept) {
  {
    DocumentWriter writer(database(), document);
    ASSERT_TRUE(writer.writeDocument());
    ASSERT_TRUE(writer.writeItem(*document.getItem(0), 1));
    EXPECT_GT(document.getId(), 0);
  }
  EXPECT_EQ(document.getId(), 0);
  EXPECT_EQ(document.getItem(0)->getId(), 0);
}

TEST_F(DocumentWriterTest, storesADerivedItemAsOneThatHasItsOwnData) {
  company.run("insert into t_invoice (t_invoice_id) values (70)");
  company.run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1) values (71, 70)");
  document.getItem(0)->setOrigin(InvoiceItem::ORIGIN_DERIVING, 71);
  DocumentWriter writer(database(), document);
  ASSERT_TRUE(writer.writeDocument());
  ASSERT_TRUE(writer.writeItem(*document.getItem(0), 1));
  EXPECT_EQ(company.query("select originmode, t_invoiceitem_1 from t_invoiceitem where t_invoice_1=71"),
            (Grid{{"2", "71"}}));
}

TEST_F(DocumentWriterTest, deletesRows) {
  DocumentWriter writer(database(), document);
  ASSERT_TRUE(writer.writeDocument());
  ASSERT_TRUE(writer.writeItem(*document.getItem(0), 1));
  EXPECT_TRUE(writer.deleteItem(*document.getItem(0)));
  EXPECT_EQ(company.query(kItemSql), Grid());
  EXPECT_TRUE(writer.deleteDocument());
  EXPECT_EQ(company.query(kDocumentSql), Grid());
}

TEST_F(DocumentWriterTest, saysWhenARowCannotBeWritten) {
  DocumentWriter writer(database(), document);
  document.setPartner(999, "nobody");
  EXPECT_FALSE(writer.writeDocument());
  document.setPartner(0, "");
  document.setId(55);
  EXPECT_FALSE(writer.writeDocument()) << "there is no row to update";
  document.getItem(0)->setId(55);
  EXPECT_FALSE(writer.writeItem(*document.getItem(0), 1));
}

}  // namespace
}  // namespace Quillane::Host
