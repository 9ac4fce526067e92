// Making documents from others, with the sample's chains.
#include "tests/host/command/ProgramFixture.h"

namespace {

class DeriveCommand : public ProgramFixture {
 protected:
  DeriveCommand() { makeSample(); }

  Grid itemsOf(int document) const {
    return query("select quantity, originmode, t_invoiceitem_1 from t_invoiceitem where t_invoice_1=" +
                 std::to_string(document) + " order by position");
  }
};

TEST_F(DeriveCommand, writesTheIdOfTheNewDocument) {
  EXPECT_EQ(runJson({"derive", "19", "101"}), Json({{"id", 25}}));
  const ProgramRun result = run({"derive", "19", "101"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "26\n");
  EXPECT_EQ(result.errors, "");
}

TEST_F(DeriveCommand, givesADraftWhatIsStillOpenRowByRow) {
  ASSERT_EQ(run({"derive", "19", "101"}).status, 0);
  EXPECT_EQ(itemsOf(25), Grid({{"3", "2", "30"}, {"1", "2", "31"}}));
  EXPECT_EQ(query("select t_invoicestatus_1, number, statusgate, t_partner_1 from t_invoice where t_invoice_id=25"),
            Grid({{"101", "", "1", "3"}}));
  const Json paint = runJson({"show", "25"})["items"][0]["values"];
  ASSERT_EQ(paint.size(), 6u);
  EXPECT_EQ(paint[0].dump(), R"({"row":1,"name":"Mennyiség","type":-1,"value":"1"})");
  EXPECT_EQ(paint[3].dump(), R"({"row":2,"name":"Mennyiség","type":-1,"value":"2"})");
}

// A row that was used up arrives with the quantity "0", which is never stored; its other values are.
TEST_F(DeriveCommand, keepsTheOtherValuesOfARowThatIsUsedUp) {
  ASSERT_EQ(run({"derive", "19", "101"}).status, 0);
  EXPECT_EQ(query("select t_itemvariable_1, row, value from t_invoiceitemdata join t_invoiceitem on "
                  "t_invoiceitem_id=t_invoiceitemdata.t_invoiceitem_1 where t_invoice_1=25 and position=2 order by "
                  "row, t_itemvariable_1"),
            Grid({{"11", "0", "futár"},
                  {"1", "1", "PO6-118301"},
                  {"3", "1", "2030.02.28"},
                  {"-1", "2", "1"},
                  {"1", "2", "PO6-118302"},
                  {"3", "2", "2030.02.28"}}));
  EXPECT_EQ(run({"check", "25"}).status, 0);
}

TEST_F(DeriveCommand, givesBackWhatACancelledInvoiceTook) {
  ASSERT_EQ(run({"derive", "22", "101"}).status, 0);
  EXPECT_EQ(itemsOf(25), Grid({{"3", "2", "36"}, {"2", "2", "37"}}));
}

TEST_F(DeriveCommand, cancelsAClosedDocumentOnce) {
  ASSERT_EQ(run({"derive", "20", "152"}).status, 0);
  EXPECT_EQ(query("select number, t_invoicestatus_1, statusgate, t_invoice_1 from t_invoice where t_invoice_id=25"),
            Grid({{"3", "152", "0", "20"}}));
  EXPECT_EQ(itemsOf(25), itemsOf(20));
  expectRefused({"derive", "20", "152"}, "Már sztornózták, ezzel: ");
  expectRefused({"derive", "23", "152"}, "Már sztornózták, ezzel: ");
}

TEST_F(DeriveCommand, refusesWhenNothingIsOpen) {
  expectRefused({"derive", "18", "401"}, "Egyetlen tételének sincs nyitott mennyisége.");
}

TEST_F(DeriveCommand, refusesWhatCannotBeMadeFromADocument) {
  expectRefused({"derive", "19", "151"}, "451 állapotúból nem készíthető 151 állapotú.");
  expectRefused({"derive", "6", "152"}, "Csak lezárt bizonylat sztornózható.");
  expectRefused({"derive", "24", "152"}, "Semmi sem készíthető belőle.");
  expectRefused({"derive", "15", "101"}, "Ilyen állapotú új bizonylat készíthető belőle: 201, 252.");
}

TEST_F(DeriveCommand, refusesUnknownDocumentsAndStatuses) {
  expectRefused({"derive", "99", "101"}, "Nincs #99 azonosítójú bizonylat.");
  expectRefused({"derive", "19", "999"}, "Nincs ilyen állapot: 999.");
}

TEST_F(DeriveCommand, refusesWrongCalls) {
  expectWrongCalls({{"derive"},
                    {"derive", "19"},
                    {"derive", "x", "101"},
                    {"derive", "19", "draft"},
                    {"derive", "19", "0"},
                    {"derive", "19", "101", "1"}});
}

}  // namespace
