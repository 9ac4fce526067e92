#include "host/document/DocumentList.h"

#include <gtest/gtest.h>

#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Host {
namespace {

/// Four documents: a closed one and the one that cancels it, a draft, and one of which nothing is said.
class DocumentListTest : public testing::Test {
 protected:
  DocumentListTest() {
    company.run(
        "create table t_invoiceitemdata (t_invoiceitemdata_id integer primary key, t_invoiceitem_1 integer, value "
        "text)");
    company.fill("t_partner", {{"name"}, {"Őrségi Pálinka Kft."}, {"50% Bt."}});
    company.fill("t_product", {{"name"}, {"Szelep, 6/4\""}});
    company.fill("t_service", {{"name"}, {"Szerelés"}});
    company.fill("t_invoice",
                 {{"t_invoice_id", "number", "partnernumber", "t_invoicestatus_1", "issuedate", "t_partner_1"},
                  {"1", "7", "SZ-2025/A", "151", "2025-03-11", "1"},
                  {"2", "1", "", "152", "2025-03-12", "1"},
                  {"3", "NULL", "NULL", "101", "NULL", "2"},
                  {"4", "NULL", "NULL", "NULL", "NULL", "NULL"}});
    company.fill("t_invoiceitem", {{"t_invoice_1", "articlekind", "articleid", "name", "quantity", "price"},
                                   {"1", "1", "1", "Csap", "12.5", "689.5"},
                                   {"1", "0", "0", "ÚT_költség", "1", "0.005"},
                                   {"2", "1", "1", "Csap", "12.5", "689.5"},
                                   {"3", "2", "1", "Munka", "sok", "100"}});
    company.fill("t_invoiceitemdata", {{"t_invoiceitem_1", "value"}, {"3", "NB14-Ű01"}, {"4", "100%"}});
  }

  std::vector<DocumentRow> read() {
    std::vector<DocumentRow> rows;
    FXString error;
    EXPECT_TRUE(DocumentList::read(*company.getDB(), rows, error)) << error.text();
    return rows;
  }

  std::set<int> find(const char* text) {
    std::set<int> ids;
    FXString error;
    EXPECT_TRUE(DocumentList::find(*company.getDB(), text, ids, error)) << error.text();
    return ids;
  }

  using Ids = std::set<int>;
  TestCompany company;
};

TEST_F(DocumentListTest, tellsWhatListsShow) {
  const std::vector<DocumentRow> rows = read();
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0].id, 1);
  EXPECT_EQ(rows[0].number, "7");
  EXPECT_EQ(rows[0].partner, "Őrségi Pálinka Kft.");
  EXPECT_EQ(rows[0].date, "2025-03-11");
  EXPECT_EQ(rows[0].status, 151);
  EXPECT_EQ(rows[0].statusName, "Kimenő számla (lezárt)");
  EXPECT_EQ(rows[0].sum, "8618.76");
  EXPECT_EQ(rows[2].number, "");
  EXPECT_EQ(rows[3].id, 4);
  EXPECT_EQ(rows[3].partner, "");
  EXPECT_EQ(rows[3].statusName, "");
}

TEST_F(DocumentListTest, takesTheSignOfTheStatus) { EXPECT_EQ(read()[1].sum, "-8618.75"); }

TEST_F(DocumentListTest, countsWhatIsNoNumberAndNoItemsAsZero) {
  EXPECT_EQ(read()[2].sum, "0");
  EXPECT_EQ(read()[3].sum, "0");
}

TEST_F(DocumentListTest, hasNoSumRatherThanAWrongOne) {
  company.run("update t_invoiceitem set quantity='123456789012', price='123456789' where t_invoice_1=3");
  EXPECT_EQ(read()[2].sum, "");
  EXPECT_EQ(read()[0].sum, "8618.76");
}

TEST_F(DocumentListTest, isOneStatement) {
  StatementLog log;
  company.getDB()->setObserver(&log);
  read();
  EXPECT_EQ(log.take().size(), 1u);
  find("csap");
  EXPECT_EQ(log.take().size(), 1u);
  company.getDB()->setObserver(nullptr);
}

TEST_F(DocumentListTest, isSearchedEverywhereAndInCapitalAndSmallLetters) {
  EXPECT_EQ(find("7"), (Ids{1}));              // number
  EXPECT_EQ(find("sz-2025/a"), (Ids{1}));      // the supplier's number
  EXPECT_EQ(find("őRSÉGI pÁL"), (Ids{1, 2}));  // partner
  EXPECT_EQ(find("csap"), (Ids{1, 2}));        // item
  EXPECT_EQ(find("út_KÖLTSÉG"), (Ids{1}));
  EXPECT_EQ(find("SZELEP"), (Ids{1, 2}));  // the article of an item that is called otherwise
  EXPECT_EQ(find("szerelés"), (Ids{3}));
  EXPECT_EQ(find("nb14-ű"), (Ids{2}));  // recorded value
  EXPECT_EQ(find("nincs ilyen"), Ids());
}

TEST_F(DocumentListTest, isSearchedForSignsAsTheyAre) {
  EXPECT_EQ(find("%"), (Ids{3}));
  EXPECT_EQ(find("T_k"), (Ids{1}));
  EXPECT_EQ(find("_"), (Ids{1}));
  EXPECT_EQ(find("6/4\""), (Ids{1, 2}));
  EXPECT_EQ(find("'"), Ids());
}

TEST_F(DocumentListTest, findsAllForNothing) {
  EXPECT_EQ(find(""), (Ids{1, 2, 3, 4}));
  EXPECT_EQ(find("  "), (Ids{1, 2, 3, 4}));
  EXPECT_EQ(find("  csap "), (Ids{1, 2}));
}

TEST_F(DocumentListTest, saysWhyItCannotBeRead) {
  company.run("alter table t_invoiceitem rename to t_gone");
  std::vector<DocumentRow> rows;
  std::set<int> ids;
  FXString error;
  EXPECT_FALSE(DocumentList::read(*company.getDB(), rows, error));
  EXPECT_NE(error, "");
  error.clear();
  EXPECT_FALSE(DocumentList::find(*company.getDB(), "a", ids, error));
  EXPECT_NE(error, "");
}

}  // namespace
}  // namespace Quillane::Host
