// Saving a table of records: what is handed over, and what happens when it cannot be written.
#include "host/windows/TableSave.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "host/windows/SaveFailureDialog.h"
#include "plugin/contract/Statement.h"
#include "tests/host/windows/DBTableFixture.h"
#include "tests/support/ModalDriver.h"

using namespace FX;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace Quillane {
namespace {

class TableSaveTest : public testing::Test, protected PartTest {
 protected:
  TableSaveTest() : window(&testAccount(), "test") {
    table = new DBTable(&window);
    load(*table);
  }

  void addRow(const char* name, const char* kind) const {
    table->handle(nullptr, FXSEL(SEL_COMMAND, DBTable::ID_ADD_ROW), nullptr);
    const FXint row = table->getNumRows() - 1;
    table->setItemText(row, NAME, name);
    table->setItemText(row, KIND, kind);
  }

  void deleteRow(FXint row) const {
    table->selectRow(row);
    table->handle(nullptr, FXSEL(SEL_COMMAND, DBTable::ID_DELETE_ROWS), nullptr);
  }

  /// Saves; each time that it fails, answer is called and says whether to try again. What the user is told is kept.
  bool save(const std::function<bool()>& wantsAnotherTry) {
    explanations.clear();
    TestSupport::ModalDriver driver([&](FXDialogBox& dialog) {
      auto* failure = dynamic_cast<SaveFailureDialog*>(&dialog);
      ASSERT_NE(failure, nullptr);
      explanations.emplace_back(failure->getExplanation().text());
      if (wantsAnotherTry())
        TestSupport::accept(dialog);
      else
        TestSupport::cancel(dialog);
    });
    return table->saveToDB(&persister);
  }

  bool saveOnce() {
    return save([] { return false; });
  }

  const Lines asBefore = {"1: Csavar|1|1|M6", "2: Anya|2|0|", "5: Alátét|3|NULL|NULL"};

  FXMainWindow window;
  DBTable* table;  // the window's
  Lines explanations;
};

TEST_F(TableSaveTest, handsOverWhatWasDeletedChangedAndAdded) {
  addRow("Szeg", "vas");
  table->setItemText(1, KIND, "műanyag");
  deleteRow(0);
  EXPECT_TRUE(saveOnce());
  EXPECT_EQ(persister.takeCalls(), (Lines{"delete 1", "update 2: kind=3, name=Anya, note=, stocked=0",
                                          "insert kind=1, name=Szeg, note=, stocked=0"}));
  EXPECT_TRUE(persister.insideTransaction);
  EXPECT_EQ(stored(), (Lines{"2: Anya|3|0|", "5: Alátét|3|NULL|NULL", "6: Szeg|1|0|"}));
  EXPECT_THAT(explanations, IsEmpty());
  EXPECT_FALSE(company.getDB()->isInTransaction());
}

TEST_F(TableSaveTest, handsOverNothingThatDidNotChange) {
  table->setItemText(0, NAME, "Szeg");
  table->setItemText(0, NAME, "Csavar");
  addRow("Szeg", "vas");
  deleteRow(3);
  EXPECT_TRUE(saveOnce());
  EXPECT_THAT(persister.takeCalls(), IsEmpty());
}

TEST_F(TableSaveTest, leavesACheckBoxWithoutAValueAsItIs) {
  table->setItemText(2, NAME, "Tömítés");
  EXPECT_TRUE(saveOnce());
  EXPECT_EQ(stored()[2], "5: Tömítés|3|NULL|");
}

TEST_F(TableSaveTest, handsOverColumnsWithANameOnly) {
  class NamesOnly : public DBTablePersister {
   public:
    FXString getColName(int column) override { return column == 1 ? "name" : ""; }
    bool updateItem(int id, std::map<FXString, FXString> handed) override {
      EXPECT_EQ(id, 2);
      values = handed;
      return true;
    }
    std::map<FXString, FXString> values;
  };
  NamesOnly names;
  table->setItemText(1, KIND, "vas");
  EXPECT_TRUE(table->saveToDB(&names));
  EXPECT_EQ(names.values, (std::map<FXString, FXString>{{"name", "Anya"}}));
}

TEST_F(TableSaveTest, doesNothingWithAPersisterThatIsNotWrittenOut) {
  DBTablePersister plain;
  addRow("Szeg", "vas");
  table->setItemText(0, NAME, "x");
  deleteRow(1);
  EXPECT_TRUE(table->saveToDB(&plain));
  EXPECT_EQ(stored(), asBefore);
  for (int column = -1; column <= 4; ++column) EXPECT_EQ(plain.getColName(column), "") << column;
}

TEST_F(TableSaveTest, savesWhatIsBeingTyped) {
  table->startInput(1, NOTE);
  for (FXWindow* child = table->getFirst(); child; child = child->getNext())
    if (auto* field = dynamic_cast<FXTextField*>(child)) field->setText("M6");
  EXPECT_TRUE(saveOnce());
  EXPECT_EQ(stored()[1], "2: Anya|2|0|M6");
}

TEST_F(TableSaveTest, savesNothingTwice) {
  addRow("Szeg", "vas");
  table->setItemText(1, KIND, "vas");
  deleteRow(0);
  EXPECT_TRUE(saveOnce());
  persister.takeCalls();
  EXPECT_TRUE(saveOnce());
  EXPECT_THAT(persister.takeCalls(), IsEmpty());
  EXPECT_TRUE(table->getDeletedKeys().empty());
  EXPECT_FALSE(table->isNewRow(2));
}

TEST_F(TableSaveTest, letsAnotherRecordHaveWhatADeletedOneHad) {
  addRow("Csavar", "réz");
  deleteRow(0);
  EXPECT_TRUE(saveOnce());
  EXPECT_EQ(stored().back(), "6: Csavar|2|0|");
}

// ---- failures

TEST_F(TableSaveTest, writesNothingWhenOneRowCannotBeWritten) {
  deleteRow(2);
  table->setItemText(0, NOTE, "M8");
  addRow("Szeg", "vas");
  addRow("Anya", "vas");
  EXPECT_FALSE(saveOnce());
  EXPECT_EQ(stored(), asBefore);
  EXPECT_FALSE(company.getDB()->isInTransaction());
  EXPECT_THAT(explanations, ElementsAre(AllOf(StartsWith("A táblázat 4. sora nem menthető: \"Anya\".\n"),
                                              HasSubstr("UNIQUE constraint failed: t_part.name"))));
}

TEST_F(TableSaveTest, keepsTheChangesWhenTheUserGivesUp) {
  deleteRow(2);
  table->setItemText(0, NAME, "Anya");
  addRow("Szeg", "vas");
  EXPECT_FALSE(saveOnce());
  EXPECT_EQ(rows(*table), (Lines{"1: Anya|vas|x|M6", "2: Anya|réz|-|", "-1: Szeg|vas|-|"}));
  EXPECT_TRUE(table->isChangedRow(0));
  EXPECT_TRUE(table->isNewRow(2));
  EXPECT_EQ(table->getDeletedKeys(), std::vector<FXint>{5});
}

TEST_F(TableSaveTest, triesAgainUntilItSucceeds) {
  addRow("Szeg", "vas");
  company.run("create trigger no_parts before insert on t_part begin select raise(abort, 'tele van'); end");
  int answers = 0;
  EXPECT_TRUE(save([&] {
    if (++answers == 2) company.run("drop trigger no_parts");
    return true;
  }));
  EXPECT_EQ(stored().size(), 4U);
  EXPECT_EQ(answers, 2);
  EXPECT_THAT(explanations, ElementsAre(HasSubstr("tele van"), HasSubstr("tele van")));
}

TEST_F(TableSaveTest, findsTheRowWhoseStatementFailedThoughThePersisterDoesNotSaySo) {
  persister.tellsFailures = false;
  table->setItemText(0, NOTE, "M8");
  table->setItemText(1, NAME, "Alátét");
  addRow("Szeg", "vas");
  EXPECT_FALSE(saveOnce());
  EXPECT_EQ(stored(), asBefore);
  EXPECT_THAT(explanations, ElementsAre(AllOf(StartsWith("A táblázat 2. sora nem menthető: \"Alátét\".\n"),
                                              HasSubstr("UNIQUE constraint failed"))));
}

TEST_F(TableSaveTest, writesNothingWhenThePersisterRefusesARow) {
  persister.refused = "Szeg";
  table->setItemText(0, NOTE, "M8");
  addRow("Szeg", "vas");
  addRow("Tipli", "vas");
  EXPECT_FALSE(saveOnce());
  EXPECT_EQ(stored(), asBefore);
  EXPECT_THAT(explanations, ElementsAre("A táblázat 4. sora nem menthető: \"Szeg\".\nA sor írása nem sikerült."));
}

TEST_F(TableSaveTest, namesADeletedRecordByWhatItWas) {
  company.run("create table t_use (part integer references t_part(t_part_id))");
  company.run("insert into t_use values (2)");
  table->setItemText(1, NAME, "Átnevezve");
  deleteRow(1);
  EXPECT_FALSE(saveOnce());
  EXPECT_EQ(stored(), asBefore);
  EXPECT_THAT(explanations, ElementsAre(AllOf(StartsWith("Ez a sor nem törölhető: \"Anya\".\n"),
                                              HasSubstr("FOREIGN KEY constraint failed"))));
}

TEST_F(TableSaveTest, tellsOfAFailureThatIsNoRowsFault) {
  company.run("create table t_use (part integer references t_part(t_part_id) deferrable initially deferred)");
  company.run("insert into t_use values (2)");
  deleteRow(1);
  EXPECT_FALSE(saveOnce());
  EXPECT_EQ(stored(), asBefore);
  EXPECT_THAT(explanations, ElementsAre(AllOf(StartsWith("A táblázat változásai nem menthetők.\n"),
                                              HasSubstr("FOREIGN KEY constraint failed"))));
}

TEST_F(TableSaveTest, doesNotMixWithAnotherTransaction) {
  table->setItemText(0, NOTE, "M8");
  ASSERT_TRUE(company.getDB()->begin());
  EXPECT_FALSE(saveOnce());
  EXPECT_THAT(persister.takeCalls(), IsEmpty());
  EXPECT_THAT(explanations, ElementsAre(StartsWith("A táblázat változásai nem menthetők.\nMár fut egy művelet")));
  EXPECT_TRUE(company.getDB()->isInTransaction()) << "which goes on";
  company.getDB()->rollback();
}

TEST_F(TableSaveTest, saysSoWhenNoCompanyIsOpen) {
  table->setItemText(0, NOTE, "M8");
  testAccount().setDB(nullptr);
  EXPECT_FALSE(saveOnce());
  EXPECT_THAT(explanations, ElementsAre(HasSubstr("Nincs megnyitva cég.")));
}

TEST_F(TableSaveTest, doesNotFailForAStatementWhoseResultThePersisterLooksAtItself) {
  class Tolerant : public PartPersister {
   public:
    bool updateItem(int id, std::map<FXString, FXString> values) override {
      Statement attempt(testAccount().getDB(), "insert into t_part (t_part_id) values (1)");
      return !attempt.execute(nullptr, 0) && PartPersister::updateItem(id, values);
    }
  };
  Tolerant tolerant;
  table->setItemText(0, NOTE, "M8");
  EXPECT_TRUE(table->saveToDB(&tolerant));
  EXPECT_EQ(stored()[0], "1: Csavar|1|1|M8");
}

}  // namespace
}  // namespace Quillane
