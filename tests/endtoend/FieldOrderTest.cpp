// The order of a product's fields, changed with the arrows of its window by real clicks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/contract/Database.h"
#include "plugin/contract/Forms.h"
#include "tests/endtoend/FieldFixture.h"
#include "tests/support/KeyScript.h"
#include "tests/support/StatementLog.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using TestSupport::takeScreenshot;

namespace Quillane::Desktop {
namespace {

constexpr int kComputer = 1;  // in the sample company

/// The order in which the computer asks for its fields.
class FieldOrder : public FieldTest {
 protected:
  void SetUp() override {
    FieldTest::SetUp();
    if (!HasFatalFailure()) company->getDatabase().setObserver(&log);
  }

  void TearDown() override {
    if (company && company->isOpen()) company->getDatabase().setObserver(nullptr);
    FieldTest::TearDown();
  }

  /// The statements that changed anything since the last call.
  std::vector<std::string> takeStored() {
    std::vector<std::string> writing;
    for (const std::string& statement : log.take())
      if (statement.find("select") != 0) writing.push_back(statement);
    return writing;
  }

  /// The key of the computer's assignment, as text.
  std::string key(int variable, int direction) const {
    return std::to_string(
        count("select t_productitemdata_id from t_productitemdata where t_product_1=1 and "
              "t_itemvariable_1=" +
              std::to_string(variable) + " and direction=" + std::to_string(direction)));
  }

  static testing::Matcher<std::string> update(const std::string& assignment, int position) {
    return testing::AllOf(HasSubstr("update"), HasSubstr("assignId='" + assignment + "'"),
                          HasSubstr("position='" + std::to_string(position) + "'"));
  }

  StatementLog log;
};

TEST_F(FieldOrder, keepsTheOddMovesOfBlocksAndStoresOnlyThePlacesThatChanged) {
  openFields("hordoz");
  selectChosen(kOutgoing, {"Gyári szám", "Garancia vége"});
  clickArrow("a selected block at the top moved up", &Chooser::up, kOutgoing,
             {"Garancia vége", "Gyári szám", "Tárolási hely"});
  acceptArticle();
  closeArticles();
  then("the two that changed places being stored", [=] {
    EXPECT_THAT(takeStored(),
                ElementsAre(HasSubstr("update t_product set"), update(key(4, 100), 1), update(key(1, 100), 2)));
    EXPECT_THAT(assignments(kComputer), ElementsAre("4 1 100", "1 2 100", "2 3 100", "1 1 200", "2 2 200"));
  });

  openFields("hordoz");
  then("the stored order",
       [] { EXPECT_THAT(texts(*chooser(kOutgoing).to), ElementsAre("Garancia vége", "Gyári szám", "Tárolási hely")); });
  selectChosen(kOutgoing, {"Garancia vége", "Gyári szám", "Tárolási hely"});
  clickArrow("all of them moved down", &Chooser::down, kOutgoing, {"Tárolási hely", "Garancia vége", "Gyári szám"});
  clickArrow("all of them moved up", &Chooser::up, kOutgoing, {"Garancia vége", "Gyári szám", "Tárolási hely"});
  selectChosen(kOutgoing, {"Gyári szám", "Tárolási hely"});
  clickArrow("a selected block at the bottom moved down", &Chooser::down, kOutgoing,
             {"Garancia vége", "Tárolási hely", "Gyári szám"});
  selectChosen(kIncoming, {"Tárolási hely"});
  clickArrow("one moved up", &Chooser::up, kIncoming, {"Tárolási hely", "Gyári szám"});
  atDialog<ArticleDataWindow>("look", [] { takeScreenshot("field-road-order"); });
  acceptArticle();
  closeArticles();
  then("what changed in both directions being stored", [=] {
    EXPECT_THAT(takeStored(), ElementsAre(HasSubstr("update t_product set"), update(key(2, 200), 1),
                                          update(key(1, 200), 2), update(key(2, 100), 2), update(key(1, 100), 3)));
    EXPECT_THAT(assignments(kComputer), ElementsAre("4 1 100", "2 2 100", "1 3 100", "2 1 200", "1 2 200"));
  });
  walk();
}

TEST_F(FieldOrder, isAsItWasWhenTheUserGivesUp) {
  openFields("hordoz");
  selectChosen(kOutgoing, {"Gyári szám"});
  clickArrow("one moved down", &Chooser::down, kOutgoing, {"Garancia vége", "Gyári szám", "Tárolási hely"});
  giveUp(kIncoming, "Gyári szám");
  choose(kOutgoing, "Csomagolás");
  cancelArticle();
  closeArticles();
  then("nothing being stored", [=] {
    EXPECT_THAT(takeStored(), IsEmpty());
    EXPECT_THAT(assignments(kComputer), ElementsAre("1 1 100", "4 2 100", "2 3 100", "1 1 200", "2 2 200"));
  });
  walk();
}

}  // namespace
}  // namespace Quillane::Desktop
