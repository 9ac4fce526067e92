// A document with its recorded values.
#include "tests/host/command/ProgramFixture.h"

namespace {

class ShowCommand : public ProgramFixture {};

TEST_F(ShowCommand, showsItemsAndValuesInTheirOrder) {
  makeSample();
  change("update t_invoiceitem set position=9 where t_invoiceitem_id=7");
  const Json document = runJson({"show", "6"});
  EXPECT_EQ(document["id"], 6);
  EXPECT_TRUE(document["number"].is_null());
  EXPECT_EQ(document["status"], 101);
  ASSERT_EQ(document["items"].size(), 6u);
  EXPECT_EQ(document["items"][0].dump(),
            R"({"n":1,"id":8,"name":"Érlelt kecskesajt","quantity":"2.5","unit":"kg","values":[)"
            R"({"row":0,"name":"Csomagolás","type":3,"value":"papír"},)"
            R"({"row":1,"name":"Mennyiség","type":-1,"value":"1.25"},)"
            R"({"row":1,"name":"Lejárat","type":2,"value":"2025.06.30"},)"
            R"({"row":2,"name":"Mennyiség","type":-1,"value":"1.25"},)"
            R"({"row":2,"name":"Lejárat","type":2,"value":"2025.07.15"}]})");
  EXPECT_EQ(document["items"][5]["id"], 7);
  EXPECT_EQ(document["items"][5]["n"], 6);
}

TEST_F(ShowCommand, writesOneLineARecord) {
  makeSample();
  EXPECT_EQ(run({"show", "10"}).output,
            "document\t10\t1\t151\n"
            "item\t1\t17\tHordozható számítógép, 14\"\t1\tdb\n"
            "value\t1\t1\tMennyiség\t-1\t1\n"
            "value\t1\t1\tGyári szám\t1\tNB14-4C77\n"
            "value\t1\t1\tGarancia vége\t2\t2028.03.17\n"
            "value\t1\t1\tTárolási hely\t1\t\n"
            "item\t2\t18\tHosszabbító kábel, 3 × 1,5 mm²\t12.5\tm\n"
            "value\t2\t0\tMegjegyzés a vevőnek\t1\tEgy darabban, dobon.\n"
            "item\t3\t19\tKiszállítás\t1\talkalom\n");
}

TEST_F(ShowCommand, showsADocumentWithoutItems) {
  makeEmpty();
  const int id = add({"document"});
  EXPECT_EQ(runJson({"show", std::to_string(id)}).dump(), R"({"id":1,"number":null,"status":101,"items":[]})");
  EXPECT_EQ(run({"show", std::to_string(id)}).output, "document\t1\t\t101\n");
}

TEST_F(ShowCommand, showsValuesWithoutAVariable) {
  makeEmpty();
  add({"document"});
  add({"item", "--document", "1", "--name", "kő"});
  change("insert into t_invoiceitemdata (t_invoiceitem_1, t_itemvariable_1, row, value) values (1, NULL, 0, 'x')");
  EXPECT_EQ(runJson({"show", "1"})["items"][0]["values"].dump(), R"([{"row":0,"name":null,"type":null,"value":"x"}])");
}

TEST_F(ShowCommand, refusesADocumentThatDoesNotExist) {
  makeSample();
  for (const char* json : {"--json", "--trace-sql"}) {
    const ProgramRun result = run({json, "show", "99"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors.find("Nincs #99 azonosítójú bizonylat."), std::string::npos);
  }
}

TEST_F(ShowCommand, needsANumber) {
  makeSample();
  for (const char* id : {"x", "", "0", "-1", "1.5", "1 ", "99999999999", "0x1", "+1"}) {
    const ProgramRun result = run({"show", "--", id});
    EXPECT_EQ(result.status, 2) << id;
    EXPECT_NE(result.errors.find("pozitív egész számot vár"), std::string::npos) << id;
  }
}

}  // namespace
