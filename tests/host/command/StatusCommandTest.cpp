// Moving documents from status to status.
#include "tests/host/command/ProgramFixture.h"

namespace {

class StatusCommand : public ProgramFixture {
 protected:
  StatusCommand() { makeSample(); }
};

TEST_F(StatusCommand, closesADocumentAndWritesItsNumber) {
  EXPECT_EQ(runJson({"status", "6", "151"}).dump(), R"({"id":6,"number":"5","status":151})");
  const ProgramRun result = run({"status", "21", "151"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "21\t6\t151\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(query("select number, t_invoicestatus_1, statusgate from t_invoice where t_invoice_id=21"),
            Grid({{"6", "151", "0"}}));
}

TEST_F(StatusCommand, leavesAnOpenDocumentWithoutANumber) {
  EXPECT_EQ(run({"status", "9", "101"}).output, "9\t\t101\n");
  EXPECT_EQ(runJson({"status", "14", "201"}).dump(), R"({"id":14,"number":null,"status":201})");
  EXPECT_EQ(query("select number, statusgate from t_invoice where t_invoice_id in (9, 14)"),
            Grid({{"NULL", "1"}, {"NULL", "1"}}));
}

TEST_F(StatusCommand, namesTheFirstErrorOfTheCheckWhenADocumentCannotBeClosed) {
  expectRefused({"status", "8", "151"},
                "ezért nem zárható le. Előbb javítsa ki. Az első: Egyéb tételadatok: Az összmennyiség (5) több, mint "
                "a tétellistában megadott (4).");
  expectRefused({"status", "7", "151"}, "(Kimenő számla (piszkozat), Őrségi Vendégház Bt., #7)");
}

TEST_F(StatusCommand, closesWhatHasNoticesOnly) {
  ASSERT_EQ(run({"record", "6", "1", "-"}, "Gyári szám\nA\nB\n").status, 0);
  ASSERT_NE(run({"check", "6"}).output.find("\tnotice\t"), std::string::npos);
  EXPECT_EQ(run({"status", "6", "151"}).status, 0);
}

TEST_F(StatusCommand, refusesMovesThatAreNotThere) {
  expectRefused({"status", "6", "251"}, "Ebből az állapotból (101) csak ide lehet továbblépni: 151.");
  expectRefused({"status", "6", "101"}, "csak ide lehet továbblépni: 151.");
  expectRefused({"status", "10", "101"}, "Ebből az állapotból (151) nem lehet továbblépni.");
  expectRefused({"status", "1", "401"}, "Ilyen állapotú új bizonylat készíthető belőle: 101, 401.");
}

TEST_F(StatusCommand, refusesADocumentWhoseStatusWasFixed) {
  change("update t_invoice set statusgate=0 where t_invoice_id=6");
  expectRefused({"status", "6", "151"}, "Az állapotát rögzítették");
}

TEST_F(StatusCommand, refusesUnknownDocumentsAndStatuses) {
  expectRefused({"status", "99", "151"}, "Nincs #99 azonosítójú bizonylat.");
  expectRefused({"status", "6", "999"}, "Nincs ilyen állapot: 999.");
}

TEST_F(StatusCommand, refusesWrongCalls) {
  expectWrongCalls({{"status"},
                    {"status", "6"},
                    {"status", "six", "151"},
                    {"status", "6", "closed"},
                    {"status", "99", "closed"},
                    {"status", "6", "151", "1"}});
}

}  // namespace
