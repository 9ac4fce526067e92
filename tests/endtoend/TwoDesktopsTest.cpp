// Two programs on one company file: what the user of the one sees while the other holds the file or changes what is
// shown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "host/windows/SaveFailureDialog.h"
#include "plugin/contract/Forms.h"
#include "tests/endtoend/FieldFixture.h"
#include "tests/endtoend/OtherProgram.h"
#include "tests/support/FakeInput.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using TestSupport::isOnScreen;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {
namespace {

constexpr int kComputer = 1;
constexpr int kPaper = 6;  // has no fields

class TwoDesktops : public FieldTest {
 protected:
  void SetUp() override {
    FieldTest::SetUp();
    if (HasFatalFailure()) return;
    // The program waits for seconds until a lock is gone.
    lines("pragma busy_timeout=20");
    other = std::make_unique<OtherProgram>(folder + "/company.db");
    variablesBefore = variables();
  }

  void TearDown() override {
    other.reset();
    FieldTest::TearDown();
  }

  std::vector<std::string> variables() const {
    return lines(
        "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable "
        "order by t_itemvariable_id");
  }

  /// Reads why the settings could not be saved, and presses the key. Goes on when this question was answered.
  void answerFailure(const std::string& what, const std::string& key, const std::function<void(std::string)>& read) {
    atDialog<SaveFailureDialog>(what, [=] {
      read(dialogOf<SaveFailureDialog>()->getExplanation().text());
      answered = dialogOf<SaveFailureDialog>()->id();
      typeKey(key, key == "Return" ? "" : kAlt);
    });
    see(what + " done",
        [this] { return !dialogOf<SaveFailureDialog>() || dialogOf<SaveFailureDialog>()->id() != answered; });
  }

  /// A new list, another name, and a variable less: a change of every kind.
  void changeSettings() {
    openSettings();
    goToVariable("Szín");
    typeIntoCell(settingsCells, "Kivitel");
    addList("Meret", "XS,XL");
    goToVariable("Feladat");
    atSettings("delete it", [] { typeKey("Delete"); });
    atDialog<FXMessageBox>("say yes", [] { typeKey("y", kAlt); });
    see("its being gone", [] { return settings() && findVariable("Feladat") < 0; });
  }

  void expectSettingsChanged() const {
    EXPECT_THAT(lines("select name, vvalue from t_itemvariable where t_itemvariable_id in (5, 13) or name='Meret' "
                      "order by name"),
                ElementsAre("Kivitel|fehér, fekete, piros, kék, zöld", "Meret|XS,XL"));
    EXPECT_EQ(findVariableId("Feladat"), -1);
  }

  std::unique_ptr<OtherProgram> other;
  std::vector<std::string> variablesBefore;
  FXID answered = 0;
};

TEST_F(TwoDesktops, loseNoSettingsToALock) {
  other->run("insert into t_itemvariable (t_itemvariable_id, name, type) values (13, 'Feladat', 1)");
  variablesBefore = variables();
  changeSettings();
  then("the other one writing", [this] { other->lock(); });
  acceptSettings();
  const auto isLocked = [](const std::string& explanation) {
    EXPECT_THAT(explanation, StartsWith("A táblázat változásai nem menthetők.\n"));
    EXPECT_THAT(explanation, HasSubstr("Az adatbázist egy másik program zárolja."));
  };
  answerFailure("try again in vain", "Return", [=](const std::string& explanation) {
    takeScreenshot("two-desktops-locked");
    isLocked(explanation);
  });
  answerFailure("try again when the lock is gone", "Return", [=](const std::string& explanation) {
    isLocked(explanation);
    EXPECT_EQ(variables(), variablesBefore);
    other->unlock();
  });
  seeMain();
  then("everything being stored", [this] { expectSettingsChanged(); });
  walk();
}

TEST_F(TwoDesktops, loseNoSettingsToOneThatReads) {
  other->run("insert into t_itemvariable (t_itemvariable_id, name, type) values (13, 'Feladat', 1)");
  variablesBefore = variables();
  changeSettings();
  then("the other one reading", [this] { other->beginReading(); });
  acceptSettings();
  answerFailure("try again when it has read", "Return", [this](const std::string& explanation) {
    EXPECT_THAT(explanation, HasSubstr("Az adatbázist egy másik program zárolja."));
    EXPECT_FALSE(company->getDatabase().isInTransaction());
    EXPECT_EQ(variables(), variablesBefore);
    other->endReading();
  });
  seeMain();
  then("everything being stored", [this] { expectSettingsChanged(); });
  walk();
}

TEST_F(TwoDesktops, storeNothingOfSettingsThatTheUserGivesUp) {
  other->run("insert into t_itemvariable (t_itemvariable_id, name, type) values (13, 'Feladat', 1)");
  variablesBefore = variables();
  changeSettings();
  then("the other one writing", [this] { other->lock(); });
  acceptSettings();
  answerFailure("give up", "f", [this](const std::string&) { other->unlock(); });
  seeMain();
  then("nothing being stored", [this] { EXPECT_EQ(variables(), variablesBefore); });
  openSettings();
  atSettings("look at what is stored", [] {
    EXPECT_GE(findVariable("Szín"), 0);
    EXPECT_GE(findVariable("Feladat"), 0);
    EXPECT_EQ(findVariable("Meret"), -1);
    typeKey("Escape");
  });
  seeMain();
  walk();
}

TEST_F(TwoDesktops, tellWhichVariableTheOtherOneDeleted) {
  openSettings();
  goToVariable("Kiszerelés");
  typeIntoCell(settingsCells, "Doboz");
  goToVariable("Megjegyzés a vevőnek");
  typeIntoCell(settingsCells, "Apropo");
  then("the other one deleting it", [this] {
    other->run("delete from t_itemvariable where name='Megjegyzés a vevőnek'");
    variablesBefore = variables();
  });
  acceptSettings();
  const auto isGone = [](const std::string& explanation) {
    takeScreenshot("two-desktops-deleted");
    EXPECT_THAT(explanation, StartsWith("A táblázat 8. sora nem menthető: \"Apropo\".\n"));
    EXPECT_THAT(explanation, HasSubstr("A módosítandó sor már nincs meg a(z) t_itemvariable táblában."));
  };
  answerFailure("try again in vain", "Return", isGone);
  answerFailure("give up", "f", isGone);
  seeMain();
  then("nothing being stored", [this] { EXPECT_EQ(variables(), variablesBefore); });
  walk();
}

TEST_F(TwoDesktops, sayThatTheSettingsCannotBeRead) {
  other->run("begin exclusive");
  atMain("open the menu of the modules", [] { typeKey("v", kAlt); });
  see(
      "the menu", [this] { return isOnScreen(*window->getPluginMenu()); }, [] { typeKey("e", kAlt); });
  atDialog<FXMessageBox>("read what is wrong", [this] {
    takeScreenshot("two-desktops-unreadable");
    EXPECT_THAT(messageText(), StartsWith("A mezők nem olvashatók be. Az adatbázist egy másik program zárolja."));
    other->unlock();
    typeKey("Return");
  });
  atSettings("leave them", [] {
    EXPECT_EQ(settingsTable()->getNumRows(), 0);
    typeKey("Escape");
  });
  seeMain();
  openSettings();
  atSettings("see them now", [] {
    EXPECT_EQ(settingsTable()->getNumRows(), 12);
    typeKey("Escape");
  });
  seeMain();
  walk();
}

TEST_F(TwoDesktops, addVariablesAtTheSameTime) {
  openSettings();
  addList("Meret", "XS,XL");
  then("the other one adding a variable, too", [this] {
    const std::string call = "QUILLANE_PLUGIN_PATH='" QUILLANE_MODULE_FOLDER "' '" QUILLANECTL "' --db '" + folder +
                             "/company.db' add variable --name Minta --type text >/dev/null";
    EXPECT_EQ(std::system(call.c_str()), 0) << call;
  });
  acceptSettings();
  seeMain();
  then("both being stored", [this] {
    std::vector<std::string> expected = variablesBefore;
    expected.emplace_back("13|Minta|1|0|0|");
    expected.emplace_back("14|Meret|3|1|0|XS,XL");
    EXPECT_EQ(variables(), expected);
  });
  walk();
}

TEST_F(TwoDesktops, keepAnArticleOnTheScreenWhileItCannotBeStored) {
  const std::vector<std::string> before = assignments(kComputer);
  openFields("hordoz");
  giveUp(kOutgoing, "Garancia vége");
  choose(kOutgoing, "Csomagolás");
  clickArrow("move it up", &Chooser::up, kOutgoing, {"Gyári szám", "Csomagolás", "Tárolási hely"});
  atDialog<ArticleDataWindow>("go to the article's own fields", [] { typeKey("a", kAlt); });
  atDialog<ArticleDataWindow>(
      "go to the unit", [] { typeKey("g", kAlt); },
      [] { return isOnScreen(*dialogOf<ArticleDataWindow>()->getUnitField()); });
  atDialog<ArticleDataWindow>(
      "type another one",
      [] {
        typeKey("a", kCtrl);
        typeText("gep");
      },
      [] { return dialogOf<ArticleDataWindow>()->getUnitField()->hasFocus(); });
  see(
      "the other one writing", [] { return dialogOf<ArticleDataWindow>()->getUnitField()->getText() == "gep"; },
      [this] { other->lock(); });
  acceptArticle();
  atDialog<FXMessageBox>("read what is wrong", [=] {
    takeScreenshot("two-desktops-article");
    EXPECT_THAT(messageText(), StartsWith("Az adatok nem tárolhatók, semmi sem változott. "));
    EXPECT_THAT(messageText(), HasSubstr("Az adatbázist egy másik program zárolja."));
    EXPECT_EQ(assignments(kComputer), before);
    typeKey("Return");
  });
  atDialog<ArticleDataWindow>("look at what was entered", [this] {
    EXPECT_EQ(dialogOf<ArticleDataWindow>()->getUnitField()->getText(), "gep");
    EXPECT_THAT(texts(*chooser(kOutgoing).to), ElementsAre("Gyári szám", "Csomagolás", "Tárolási hely"));
    other->unlock();
  });
  acceptArticle();
  closeArticles();
  then("everything being stored", [this] {
    EXPECT_THAT(lines("select unit from t_product where t_product_id=1"), ElementsAre("gep"));
    EXPECT_THAT(assignments(kComputer), ElementsAre("1 1 100", "12 2 100", "2 3 100", "1 1 200", "2 2 200"));
  });
  walk();
}

TEST_F(TwoDesktops, storeNothingWhenTheOtherOneTookAnAssignmentAway) {
  openFields("hordoz");
  choose(kIncoming, "Lejárat");
  selectChosen(kOutgoing, {"Tárolási hely"});
  clickArrow("move one up", &Chooser::up, kOutgoing, {"Gyári szám", "Tárolási hely", "Garancia vége"});
  then("the other one taking one away", [this] {
    other->run("delete from t_productitemdata where t_product_1=1 and t_itemvariable_1=4 and direction=100");
  });
  acceptArticle();
  atDialog<FXMessageBox>("read what is wrong", [this] {
    takeScreenshot("two-desktops-assignment");
    EXPECT_THAT(messageText(), StartsWith("Az adatok nem tárolhatók, semmi sem változott. "));
    EXPECT_THAT(messageText(), HasSubstr("A módosítandó sor már nincs meg a(z) t_productitemdata táblában."));
    EXPECT_THAT(assignments(kComputer), ElementsAre("1 1 100", "2 3 100", "1 1 200", "2 2 200"));
    typeKey("Return");
  });
  cancelArticle();
  closeArticles();
  openFields("hordoz");
  atDialog<ArticleDataWindow>("look at what is there now", [] {
    EXPECT_THAT(texts(*chooser(kOutgoing).to), ElementsAre("Gyári szám", "Tárolási hely"));
    EXPECT_GE(chooser(kOutgoing).from->findItem("Garancia vége"), 0);
  });
  cancelArticle();
  closeArticles();
  walk();
}

TEST_F(TwoDesktops, storeNothingWhenTheOtherOneDeletedAChosenVariable) {
  openFields("hordoz");
  choose(kOutgoing, "Csomagolás");
  choose(kIncoming, "Lejárat");
  then("the other one deleting it", [this] { other->run("delete from t_itemvariable where name='Csomagolás'"); });
  acceptArticle();
  atDialog<FXMessageBox>("read what is wrong", [this] {
    EXPECT_THAT(messageText(), StartsWith("Az adatok nem tárolhatók, semmi sem változott. "));
    EXPECT_THAT(messageText(), HasSubstr("FOREIGN KEY constraint failed"));
    EXPECT_EQ(assignments(kComputer).size(), 5U);
    typeKey("Return");
  });
  atDialog<ArticleDataWindow>("go on where the work was",
                              [] { EXPECT_EQ(dialogOf<ArticleDataWindow>()->getTabs()->getCurrent(), 1); });
  giveUp(kOutgoing, "Csomagolás");
  acceptArticle();
  closeArticles();
  then("the rest being stored", [this] { EXPECT_THAT(assignments(kComputer), Contains("3 3 200")); });
  walk();
}

TEST_F(TwoDesktops, showAnAssignmentThatBothMadeSoThatOneOfThemCanGo) {
  openFields("nyomtat");
  choose(kOutgoing, "Gyári szám");
  then("the other one assigning it, too", [this] {
    const std::string call = "QUILLANE_PLUGIN_PATH='" QUILLANE_MODULE_FOLDER "' '" QUILLANECTL "' --db '" + folder +
                             "/company.db' add assignment --product 6 --variable 1 --direction out >/dev/null";
    EXPECT_EQ(std::system(call.c_str()), 0) << call;
  });
  acceptArticle();
  closeArticles();
  openFields("nyomtat");
  atDialog<ArticleDataWindow>("take one away", [=] {
    EXPECT_THAT(assignments(kPaper), ElementsAre("1 1 100", "1 1 100"));
    EXPECT_THAT(texts(*chooser(kOutgoing).to), ElementsAre("Gyári szám", "Gyári szám"));
  });
  giveUp(kOutgoing, "Gyári szám");
  acceptArticle();
  closeArticles();
  then("one being left", [this] { EXPECT_THAT(assignments(kPaper), ElementsAre("1 1 100")); });
  walk();
}

}  // namespace
}  // namespace Quillane::Desktop
