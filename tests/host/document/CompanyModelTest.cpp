#include "host/document/CompanyModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "plugin/contract/Statement.h"
#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Host {
namespace {

const Grid kStatuses = {
    {"101", "Kimenő számla (piszkozat)", "100", "0"}, {"102", "Kimenő díjbekérő", "100", "0"},
    {"151", "Kimenő számla (lezárt)", "100", "1"},    {"152", "Kimenő számla (sztornó)", "100", "1"},
    {"201", "Bejövő számla (piszkozat)", "200", "0"}, {"202", "Bejövő díjbekérő", "200", "0"},
    {"251", "Bejövő számla (lezárt)", "200", "1"},    {"252", "Bejövő számla (sztornó)", "200", "1"},
    {"401", "Szállítólevél (piszkozat)", "100", "0"}, {"451", "Szállítólevél (lezárt)", "100", "1"},
    {"452", "Szállítólevél (sztornó)", "100", "1"},   {"801", "Megrendelés", "100", "0"},
};

const char* const kStatusesSql = "select t_invoicestatus_id, name, direction, closed from t_invoicestatus order by 1";

Grid columnsOf(const TestCompany& company, const std::string& table) {
  return company.query("select name, type from pragma_table_info('" + table + "')");
}

Grid referencesOf(const TestCompany& company, const std::string& table) {
  return company.query("select \"from\", \"table\" from pragma_foreign_key_list('" + table + "') order by 1");
}

TEST(CompanyModel, hasTheTablesOfTheHost) {
  const TestCompany company;
  const Grid article = {{"name"}, {"unit"}, {"price"}};
  const auto names = [&](const std::string& table) {
    return company.query("select name from pragma_table_info('" + table + "') where cid>0");
  };
  EXPECT_EQ(names("t_invoicestatus"), (Grid{{"name"}, {"direction"}, {"closed"}}));
  EXPECT_EQ(names("t_invoice"), (Grid{{"number"},
                                      {"partnernumber"},
                                      {"t_invoicestatus_1"},
                                      {"statusgate"},
                                      {"issuedate"},
                                      {"t_partner_1"},
                                      {"t_invoice_1"},
                                      {"version"}}));
  EXPECT_EQ(names("t_invoiceitem"), (Grid{{"t_invoice_1"},
                                          {"position"},
                                          {"articlekind"},
                                          {"articleid"},
                                          {"name"},
                                          {"unit"},
                                          {"quantity"},
                                          {"price"},
                                          {"originmode"},
                                          {"t_invoiceitem_1"}}));
  for (const char* table : {"t_product", "t_service", "t_suite"}) EXPECT_EQ(names(table), article) << table;
  EXPECT_EQ(names("t_partner"), (Grid{{"name"}, {"address"}, {"taxnumber"}}));
  for (const char* table :
       {"t_invoicestatus", "t_invoice", "t_invoiceitem", "t_product", "t_service", "t_suite", "t_partner"})
    EXPECT_EQ(columnsOf(company, table)[0][0], std::string(table) + "_id");
}

TEST(CompanyModel, hasTheReferencesEachWithAnIndex) {
  const TestCompany company;
  EXPECT_EQ(
      referencesOf(company, "t_invoice"),
      (Grid{{"t_invoice_1", "t_invoice"}, {"t_invoicestatus_1", "t_invoicestatus"}, {"t_partner_1", "t_partner"}}));
  EXPECT_EQ(referencesOf(company, "t_invoiceitem"),
            (Grid{{"t_invoice_1", "t_invoice"}, {"t_invoiceitem_1", "t_invoiceitem"}}));
  EXPECT_EQ(company.query("select m.tbl_name, i.name from sqlite_master m join pragma_index_info(m.name) i "
                          "where m.type='index' order by 1, 2"),
            (Grid{{"t_invoice", "t_invoice_1"},
                  {"t_invoice", "t_invoicestatus_1"},
                  {"t_invoice", "t_partner_1"},
                  {"t_invoiceitem", "t_invoice_1"},
                  {"t_invoiceitem", "t_invoiceitem_1"}}));
}

TEST(CompanyModel, seedsTheStatuses) {
  const TestCompany company;
  EXPECT_EQ(company.query(kStatusesSql), kStatuses);
}

TEST(CompanyModel, changesNothingInACompanyThatIsUpToDate) {
  const TestCompany company;
  StatementLog log;
  company.getDB()->setObserver(&log);
  const Grid before = company.query("select type, name, sql from sqlite_master order by 1, 2");
  const Grid changesBefore = company.query("select total_changes()");
  log.take();
  FXString error;
  EXPECT_TRUE(syncCompany(*company.getDB(), error)) << error.text();
  EXPECT_EQ(log.take(), (std::vector<std::string>{"select t_invoicestatus_id from t_invoicestatus\n    "}));
  company.getDB()->setObserver(nullptr);
  EXPECT_EQ(company.query("select type, name, sql from sqlite_master order by 1, 2"), before);
  EXPECT_EQ(company.query("select total_changes()"), changesBefore);
}

TEST(CompanyModel, putsBackAStatusThatIsMissingAndLeavesTheOthers) {
  const TestCompany company;
  company.run("delete from t_invoicestatus where t_invoicestatus_id in (151, 801)");
  company.run("update t_invoicestatus set name='Vázlat', direction=7, closed=1 where t_invoicestatus_id=101");
  company.fill("t_invoicestatus", {{"t_invoicestatus_id", "name"}, {"900", "Saját"}});
  FXString error;
  EXPECT_TRUE(syncCompany(*company.getDB(), error)) << error.text();
  Grid expected = kStatuses;
  expected[0] = {"101", "Vázlat", "7", "1"};
  expected.push_back({"900", "Saját", "NULL", "NULL"});
  EXPECT_EQ(company.query(kStatusesSql), expected);
}

TEST(CompanyModel, bringsAnOlderCompanyUpToDateAndKeepsItsRows) {
  FXString error;
  testAccount().setDB(TarnwellDatabase::open(":memory:", error));
  TarnwellDatabase* database = testAccount().getDB();
  ASSERT_NE(database, nullptr);
  ASSERT_TRUE(
      Statement(database, "create table t_partner (t_partner_id integer primary key, name text)").execute(nullptr, 1));
  ASSERT_TRUE(Statement(database, "insert into t_partner values (3, 'Kovács Bt.')").execute(nullptr, 1));
  EXPECT_TRUE(syncCompany(*database, error)) << error.text();
  EXPECT_EQ(database->queryScalar("select count(*) from t_partner where t_partner_id=3 and name='Kovács Bt.' and "
                                  "address is null and taxnumber is null",
                                  1, -1),
            1);
  testAccount().setDB(nullptr);
}

TEST(CompanyModel, joinsARunningTransaction) {
  const TestCompany company;
  company.run("delete from t_invoicestatus where t_invoicestatus_id=801");
  ASSERT_TRUE(company.getDB()->begin());
  FXString error;
  EXPECT_TRUE(syncCompany(*company.getDB(), error)) << error.text();
  EXPECT_EQ(company.query(kStatusesSql), kStatuses);
  EXPECT_TRUE(company.getDB()->rollback());
  EXPECT_EQ(company.query(kStatusesSql).size(), kStatuses.size() - 1);
}

TEST(CompanyModel, saysWhyACompanyCannotBeBroughtUpToDate) {
  const TestCompany company(TestCompany::IN_FILE);
  company.run("delete from t_invoicestatus where t_invoicestatus_id=801");
  company.run("pragma busy_timeout=0");
  const auto other = company.openAgain();
  ASSERT_TRUE(other->begin());
  FXString error;
  EXPECT_FALSE(syncCompany(*company.getDB(), error));
  EXPECT_THAT(error.text(), HasSubstr("A cég adatbázisa nem hozható naprakész állapotba: "));
  EXPECT_THAT(error.text(), HasSubstr("zárol"));
  ASSERT_TRUE(other->rollback());
  EXPECT_TRUE(syncCompany(*company.getDB(), error));
  EXPECT_EQ(company.query(kStatusesSql), kStatuses);
}

TEST(CompanyModel, isUsableWhileAnotherProgramWrites) {
  const TestCompany company(TestCompany::IN_FILE);
  company.run("pragma busy_timeout=0");
  const auto other = company.openAgain();
  ASSERT_TRUE(other->begin());
  FXString error;
  EXPECT_TRUE(syncCompany(*company.getDB(), error)) << error.text();
}

TEST(CompanyModel, losesNoDocumentWhenAPartnerOrAStatusIsDeleted) {
  const TestCompany company;
  company.fill("t_partner", {{"t_partner_id", "name"}, {"1", "Kovács Bt."}});
  company.fill("t_invoice", {{"t_invoice_id", "t_invoicestatus_1", "t_partner_1", "t_invoice_1"},
                             {"1", "151", "1", "NULL"},
                             {"2", "152", "1", "1"}});
  company.fill("t_invoiceitem",
               {{"t_invoiceitem_id", "t_invoice_1", "t_invoiceitem_1"}, {"1", "1", "NULL"}, {"2", "2", "1"}});
  company.run("delete from t_partner");
  company.run("delete from t_invoicestatus where t_invoicestatus_id=152");
  EXPECT_EQ(company.query("select t_invoice_id, t_invoicestatus_1, t_partner_1, t_invoice_1 from t_invoice order by 1"),
            (Grid{{"1", "151", "NULL", "NULL"}, {"2", "NULL", "NULL", "1"}}));
  company.run("delete from t_invoice where t_invoice_id=1");
  EXPECT_EQ(company.query("select t_invoice_id, t_invoice_1 from t_invoice"), (Grid{{"2", "NULL"}}));
  EXPECT_EQ(company.query("select t_invoiceitem_id, t_invoiceitem_1 from t_invoiceitem"), (Grid{{"2", "NULL"}}));
}

}  // namespace
}  // namespace Quillane::Host
