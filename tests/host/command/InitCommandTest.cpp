// Creating a company and bringing one up to date, as a person at a shell does it.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "tests/host/command/ProgramFixture.h"

namespace {

class InitCommand : public ProgramFixture {};

TEST_F(InitCommand, makesACompanyWithAllTablesAndStatuses) {
  const ProgramRun result = run({"init"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output, "Elkészült az új cég: " + company + "\n");
  EXPECT_EQ(query("select count(*) from t_invoicestatus"), Grid({{"12"}}));
  EXPECT_EQ(query("select t_itemvariable_id, name from t_itemvariable"), Grid({{"-1", "Mennyiség"}}));
  EXPECT_EQ(query("select count(*) from t_invoice"), Grid({{"0"}}));
}

TEST_F(InitCommand, writesOneJsonValue) {
  EXPECT_EQ(runJson({"init"}), Json({{"file", company}, {"created", true}}));
  EXPECT_EQ(runJson({"init"}), Json({{"file", company}, {"created", false}}));
}

TEST_F(InitCommand, saysWhatBecameOfTheCompany) {
  EXPECT_EQ(run({"init", "--sample"}).output, "Elkészült az új cég a mintaadatokkal: " + company + "\n");
  EXPECT_EQ(run({"init"}).output, "A cég adatai naprakészek: " + company + "\n");
  company = path("other.db");
  EXPECT_EQ(run({"init"}).output, "Elkészült az új cég: " + company + "\n");
  EXPECT_EQ(run({"init", "--sample"}).output, "A cég megkapta a mintaadatokat: " + company + "\n");
}

TEST_F(InitCommand, leavesOnlyTheCompanyFileBehind) {
  makeSample();
  EXPECT_EQ(listFolder(), std::vector<std::string>({"company.db"}));
}

TEST_F(InitCommand, givesTheFileTheUsualPermissions) {
  makeEmpty();
  const mode_t mask = umask(0);
  umask(mask);
  struct stat state = {};
  ASSERT_EQ(stat(company.c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777, 0666 & ~mask);
}

TEST_F(InitCommand, changesNothingTheSecondTime) {
  makeSample();
  const std::string before = dump();
  EXPECT_EQ(run({"init"}).status, 0);
  EXPECT_EQ(dump(), before);
}

TEST_F(InitCommand, bringsAnOlderCompanyUpToDate) {
  makeSample();
  change("drop table t_suiteitemdata; delete from t_invoicestatus where t_invoicestatus_id=452");
  const ProgramRun result = run({"init"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "A cég adatai naprakészek: " + company + "\n");
  EXPECT_EQ(query("select count(*) from t_suiteitemdata"), Grid({{"0"}}));
  EXPECT_EQ(query("select count(*) from t_invoicestatus where t_invoicestatus_id=452"), Grid({{"1"}}));
  EXPECT_EQ(query("select count(*) from t_product"), Grid({{"6"}}));
}

TEST_F(InitCommand, fillsAnExistingCompanyThatIsStillEmptyWithTheSample) {
  makeEmpty();
  EXPECT_EQ(run({"init", "--sample"}).status, 0);
  EXPECT_EQ(query("select count(*) from t_product"), Grid({{"6"}}));
}

TEST_F(InitCommand, takesAnEmptyFileAsANewCompany) {
  writeFile("company.db", "");
  EXPECT_EQ(run({"init", "--sample"}).status, 0);
  EXPECT_EQ(query("select count(*) from t_product"), Grid({{"6"}}));
}

TEST_F(InitCommand, refusesTheSampleForACompanyThatIsInUse) {
  makeEmpty();
  add({"partner", "--name", "Első Vevő Kft."});
  const std::string before = dump();
  const ProgramRun result = run({"init", "--sample"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("A mintacég csak üres cégfájlba kerülhet"), std::string::npos);
  EXPECT_EQ(dump(), before);
}

TEST_F(InitCommand, refusesADatabaseOfSomeOtherProgram) {
  change("create table bookmarks (id integer primary key)");
  const std::string before = dump();
  const ProgramRun result = run({"init"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("Nem egy cég adatai"), std::string::npos);
  EXPECT_EQ(dump(), before);
}

TEST_F(InitCommand, refusesAFileThatIsNoDatabase) {
  const std::string content = "This is a letter, not a database. " + std::string(4096, 'x');
  writeFile("company.db", content);
  const ProgramRun result = run({"init"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(company), std::string::npos);
  std::ifstream stream(company);
  std::string kept((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  EXPECT_EQ(kept, content);
}

TEST_F(InitCommand, saysWhyAFileCannotBeCreated) {
  const ProgramRun result = runBare({"--db", path("missing/company.db"), "init"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(path("missing/company.db")), std::string::npos);
  EXPECT_EQ(listFolder(), std::vector<std::string>());
}

TEST_F(InitCommand, needsAFile) {
  EXPECT_EQ(runBare({"init"}).status, 2);
  EXPECT_EQ(runBare({"--db", "", "init"}).status, 2);
  const ProgramRun inMemory = runBare({"--db", ":memory:", "init"});
  EXPECT_EQ(inMemory.status, 2);
  EXPECT_NE(inMemory.errors, "");
}

TEST_F(InitCommand, refusesHalfACompanyAndLeavesNothingBehind) {
  // A module of the same name that makes no tables is found before the real one.
  setVariable("QUILLANE_PLUGIN_PATH", HOLLOW_MODULE_FOLDER);
  const ProgramRun result = run({"init", "--sample"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("QuillanePluginItemData"), std::string::npos);
  EXPECT_EQ(listFolder(), std::vector<std::string>());
}

TEST_F(InitCommand, doesNotTakeTheNameOfAFileThatIsNoRegularOne) {
  std::filesystem::create_symlink(path("nowhere"), company);
  const ProgramRun result = run({"init"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(std::filesystem::is_symlink(company));
  EXPECT_EQ(listFolder(), std::vector<std::string>({"company.db"}));
}

class SampleCompany : public ProgramFixture {
 protected:
  SampleCompany() { makeSample(); }
};

TEST_F(SampleCompany, hasDocumentsOfEveryStatus) {
  EXPECT_EQ(query("select t_invoicestatus_id from t_invoicestatus where not exists "
                  "(select 1 from t_invoice where t_invoicestatus_1=t_invoicestatus_id)"),
            Grid());
}

TEST_F(SampleCompany, numbersClosedDocumentsWithoutGapsAndNoOthers) {
  EXPECT_EQ(query("select t_invoice_id from t_invoice join t_invoicestatus on t_invoicestatus_1=t_invoicestatus_id "
                  "where (closed=1)<>(number is not null)"),
            Grid());
  EXPECT_EQ(query("select t_invoicestatus_1 from t_invoice where number is not null group by t_invoicestatus_1 "
                  "having count(distinct number)<>count(*) or min(number+0)<>1 or max(number+0)<>count(*)"),
            Grid());
}

TEST_F(SampleCompany, closedDocumentsCannotMoveAndOthersCan) {
  EXPECT_EQ(query("select t_invoice_id from t_invoice join t_invoicestatus on t_invoicestatus_1=t_invoicestatus_id "
                  "where closed=statusgate"),
            Grid());
}

TEST_F(SampleCompany, derivedItemsHaveASourceOfTheSameArticle) {
  EXPECT_EQ(query("select i.t_invoiceitem_id from t_invoiceitem i left join t_invoiceitem s on "
                  "s.t_invoiceitem_id=i.t_invoiceitem_1 where (i.originmode<>0)<>(s.t_invoiceitem_id is not null) or "
                  "i.originmode not in (0, 2) or s.t_invoice_1=i.t_invoice_1 or s.articlekind<>i.articlekind or "
                  "s.articleid<>i.articleid"),
            Grid());
  EXPECT_EQ(query("select count(*)>0 from t_invoiceitem where originmode=2"), Grid({{"1"}}));
}

TEST_F(SampleCompany, closedDocumentsTakeNoMoreThanThereIsNeitherInTotalNorInARow) {
  const std::string families = " t_invoicestatus_1 in (151, 152, 451, 452) ";
  const std::string sign = "case when t_invoicestatus_1 in (151, 451) then 1 else -1 end";
  EXPECT_EQ(query("select s.t_invoiceitem_id from t_invoiceitem s join t_invoiceitem i on "
                  "i.t_invoiceitem_1=s.t_invoiceitem_id join t_invoice on t_invoice_id=i.t_invoice_1 where" +
                  families + "group by s.t_invoiceitem_id, s.quantity having sum(i.quantity*" + sign +
                  ") not between 0 and s.quantity+0"),
            Grid());
  EXPECT_EQ(query("select s.t_invoiceitem_1, s.row from t_invoiceitemdata s join t_invoiceitem i on "
                  "i.t_invoiceitem_1=s.t_invoiceitem_1 join t_invoiceitemdata d on "
                  "d.t_invoiceitem_1=i.t_invoiceitem_id and d.row=s.row and d.t_itemvariable_1=-1 join t_invoice on "
                  "t_invoice_id=i.t_invoice_1 where s.t_itemvariable_1=-1 and" +
                  families + "group by s.t_invoiceitem_1, s.row, s.value having sum(d.value*" + sign +
                  ") not between 0 and s.value+0"),
            Grid());
}

TEST_F(SampleCompany, recordsDatesAsTheDateInputWritesThem) {
  EXPECT_EQ(query("select value from t_invoiceitemdata join t_itemvariable on t_itemvariable_1=t_itemvariable_id "
                  "where type=2 and value<>'' and value not glob '[0-9][0-9][0-9][0-9].[0-9][0-9].[0-9][0-9]'"),
            Grid());
}

TEST_F(SampleCompany, hasVariablesOfEveryKind) {
  EXPECT_EQ(query("select count(distinct type*100+process*10+mandatory) from t_itemvariable where type in (1, 2, 3) "
                  "and process in (0, 1) and mandatory in (0, 1)"),
            Grid({{"12"}}));
}

TEST_F(SampleCompany, assignsVariablesForBothDirectionsToEveryKindOfArticle) {
  for (const char* table : {"t_productitemdata", "t_serviceitemdata", "t_suiteitemdata"}) {
    EXPECT_EQ(query(std::string("select distinct direction from ") + table + " order by 1"), Grid({{"100"}, {"200"}}));
  }
}

TEST_F(SampleCompany, usesEveryVariable) {
  EXPECT_EQ(query("select name from t_itemvariable where t_itemvariable_id>0 and not exists "
                  "(select 1 from t_invoiceitemdata where t_itemvariable_1=t_itemvariable_id)"),
            Grid());
}

TEST_F(SampleCompany, recordsOnlyChoicesOfLists) {
  EXPECT_EQ(query("select value from t_invoiceitemdata join t_itemvariable on t_itemvariable_1=t_itemvariable_id "
                  "where type=3 and value<>'' and instr(', '||vvalue||', ', ', '||value||', ')=0"),
            Grid());
}

TEST_F(SampleCompany, hasADraftThatIsComplete) { EXPECT_EQ(runJson({"check", "6"}), Json::array()); }

TEST_F(SampleCompany, hasADraftWithMissingValuesAndOneWithTooManyRows) {
  const ProgramRun missing = run({"check", "7"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.output.find("INVOICE_ITEMDATAWANTED\terror"), std::string::npos);
  const ProgramRun tooMany = run({"check", "8"});
  EXPECT_EQ(tooMany.status, 1);
  EXPECT_NE(tooMany.output.find("INVOICE_ITEMDATAQUANTITYMORETHAN\terror"), std::string::npos);
}

TEST_F(SampleCompany, closedDocumentsHaveNothingToComplainAbout) {
  for (const auto& row : query("select t_invoice_id from t_invoice where number is not null")) {
    EXPECT_EQ(run({"check", row[0]}).status, 0) << row[0];
  }
}

TEST_F(SampleCompany, isStoredAsASaveWouldStoreIt) {
  const std::string values =
      "select t_invoiceitem_1, t_itemvariable_1, row, value from t_invoiceitemdata order by 1, 3, 2";
  const Grid before = query(values);
  for (const auto& row : query("select t_invoice_id from t_invoice where number is null")) {
    EXPECT_EQ(run({"save", row[0]}).status, 0) << row[0];
  }
  EXPECT_EQ(query(values), before);
}

TEST_F(SampleCompany, cancellingDocumentsRepeatWhatTheyCancel) {
  for (const auto& pair : query("select t_invoice_1, t_invoice_id from t_invoice where t_invoice_1 is not null")) {
    Json original = runJson({"show", pair[0]})["items"];
    Json cancelling = runJson({"show", pair[1]})["items"];
    for (Json* items : {&original, &cancelling}) {
      for (Json& item : *items) item.erase("id");
    }
    EXPECT_EQ(cancelling, original) << pair[1];
  }
}

}  // namespace
