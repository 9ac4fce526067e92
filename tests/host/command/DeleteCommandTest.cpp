// Deleting documents.
#include "tests/host/command/ProgramFixture.h"

namespace {

class DeleteCommand : public ProgramFixture {
 protected:
  DeleteCommand() { makeSample(); }
};

TEST_F(DeleteCommand, deletesADocumentWithItsItemsAndTheirValues) {
  const ProgramRun result = run({"delete", "6"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "6\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(runJson({"delete", "21"}), Json({{"id", 21}}));
  EXPECT_EQ(query("select count(*) from t_invoice where t_invoice_id in (6, 21)"), Grid({{"0"}}));
  EXPECT_EQ(query("select count(*) from t_invoiceitem where t_invoice_1 in (6, 21)"), Grid({{"0"}}));
  EXPECT_EQ(query("select count(*) from t_invoiceitemdata where t_invoiceitem_1 in (7, 8, 9, 10, 34, 35)"),
            Grid({{"0"}}));
  EXPECT_EQ(run({"show", "6"}).status, 1);
}

TEST_F(DeleteCommand, refusesClosedDocuments) {
  expectRefused({"delete", "10"}, "Lezárt bizonylat. Ha téves, sztornózza.");
  expectRefused({"delete", "12"}, "Lezárt bizonylat.");
}

TEST_F(DeleteCommand, refusesADocumentThatAnotherOneWasMadeFrom) {
  expectRefused({"delete", "18"}, "Tételéből másik bizonylat tétele készült: ");
  expectRefused({"delete", "1"}, "#22");
}

TEST_F(DeleteCommand, refusesADocumentThatDoesNotExist) {
  expectRefused({"delete", "99"}, "Nincs #99 azonosítójú bizonylat.");
}

TEST_F(DeleteCommand, refusesWrongCalls) {
  expectWrongCalls({{"delete"}, {"delete", "six"}, {"delete", "0"}, {"delete", "6", "7"}});
}

}  // namespace
