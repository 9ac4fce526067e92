// The road of a field, in the real windows with the real module, by real keys and clicks: defined, assigned, recorded,
// and deleted again, also while documents are open.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/PluginListWindow.h"
#include "plugin/contract/Forms.h"
#include "tests/endtoend/FieldFixture.h"
#include "tests/support/FakeInput.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using TestSupport::isOnScreen;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {
namespace {

// Products of the sample company.
constexpr int kPaint = 4;
constexpr int kPaper = 6;  // has no fields

class FieldRoad : public FieldTest {
 protected:
  /// The pop-up menu that is open; null when there is none.
  static FXPopup* menu() { return testAccount().getPopupWindow(); }

  /// Opens the menu of the settings' table by its key.
  void openSettingsMenu() {
    atSettings("open the menu", [] { typeKey("Menu"); });
    see("the menu", [] { return menu() && isOnScreen(*menu()); });
  }

  /// Has one more field asked for on outgoing documents of the product.
  void assign(const std::string& product, const std::string& field) {
    openFields(product);
    choose(kOutgoing, field);
    acceptArticle();
    closeArticles();
  }

  /// Takes a field away from the paint, and deletes it.
  void deleteFieldOfPaint(const std::string& field) {
    openFields("selyem");
    giveUp(kIncoming, field);
    giveUp(kOutgoing, field);
    acceptArticle();
    closeArticles();
    openSettings();
    goToVariable(field);
    atSettings("press Delete", [] { typeKey("Delete"); });
    atDialog<FXMessageBox>("say yes", [] { typeKey("y", kAlt); });
    acceptSettings();
    seeMain();
  }

  /// Opens the item data of the document's first item, looks at them and closes them.
  void lookAtItemData(const std::string& what, const Action& look) {
    atDocument(
        what + ": open the item data", [] { typeKey("1", kCtrl); },
        [this] { return document()->getItemTable()->getNumRows() > 0; });
    atItemData(what, [=] {
      look();
      typeKey("o", kAlt);
    });
    see(what + ": being back", [this] { return document() != nullptr; });
  }

  /// The fields in the columns of the unit table, behind the quantity.
  static std::vector<std::string> columns() {
    std::vector<std::string> names;
    for (FXint column = 1; unitTable() && column < unitTable()->getNumColumns(); ++column)
      names.emplace_back(unitTable()->getColumnText(column).text());
    return names;
  }

  /// What a cell of the unit table offers.
  static std::vector<std::string> choices(int row, int column) {
    const auto* cell = dynamic_cast<FXComboTableItem*>(unitTable()->getItem(row, column));
    std::vector<std::string> offered;
    if (!cell) return offered;
    const FXString selections = cell->getSelections();
    for (FXint i = 0; i <= selections.contains('\n'); ++i) offered.emplace_back(selections.section('\n', i).text());
    return offered;
  }

  /// Chooses by the keyboard: the first choice is a blank, and each arrow takes the next one and ends the choosing.
  void chooseInCell(int row, int column, const std::vector<std::string>& onTheWay) {
    goTo(unitTable, row, column);
    for (const std::string& next : onTheWay) {
      see(
          "opening the choices", [] { return !findChild<FXComboBox>(*unitTable()); }, [] { typeKey("F2"); });
      see(
          "the choices", [] { return findChild<FXComboBox>(*unitTable()) != nullptr; }, [] { typeKey("Down"); });
      see("having chosen " + next, [=] {
        return unitTable() && !findChild<FXComboBox>(*unitTable()) &&
               unitTable()->getItemText(row, column) == next.c_str();
      });
    }
  }
};

TEST_F(FieldRoad, leadsFromTheSettingsToARecordedValue) {
  openSettings();
  addList("Meret", "XS,XL,XXL");
  acceptSettings();
  seeMain();
  then("the variable being stored", [this] {
    EXPECT_THAT(lines("select name, type, process, mandatory, vvalue from t_itemvariable where name='Meret'"),
                ElementsAre("Meret|3|1|0|XS,XL,XXL"));
  });

  openFields("nyomtat");
  choose(kOutgoing, "Meret");
  atDialog<ArticleDataWindow>("look", [] { takeScreenshot("field-road-assigned"); });
  acceptArticle();
  closeArticles();
  then("the assignment being stored",
       [this] { EXPECT_THAT(assignments(kPaper), ElementsAre(std::to_string(findVariableId("Meret")) + " 1 100")); });

  writeInvoice("lgyfa", "nyomtat", "3");
  atDocument(
      "open the item data", [] { typeKey("1", kCtrl); },
      [this] { return document()->getItemTable()->getNumRows() == 1; });
  atItemData(
      "look at the field",
      [] {
        EXPECT_EQ(unitTable()->getColumnText(1), "Meret");
        EXPECT_EQ(unitTable()->getItemText(0, 0), "3");
        EXPECT_THAT(choices(0, 1), ElementsAre(" ", "XS", "XL", "XXL"));
      },
      [] { return unitTable()->getNumRows() == 1; });
  typeIntoCell(unitTable, 0, 0, "2");
  chooseInCell(0, 1, {"XS", "XL"});
  atItemData("add a row", [] { typeKey("Insert"); });
  see("the new row", [] { return unitTable()->getNumRows() == 2; });
  chooseInCell(1, 1, {"XS"});
  atItemData("close the item data", [] {
    takeScreenshot("field-road-recorded");
    typeKey("o", kAlt);
  });
  save();
  openAgain("xl");
  then("what was recorded", [this] {
    EXPECT_THAT(itemCell(0, DocumentItemTable::ATTACHED_DATA), testing::AllOf(HasSubstr("XL"), HasSubstr("XS")));
    EXPECT_THAT(lines("select row, t_itemvariable_1, value from t_invoiceitemdata d join t_invoiceitem on "
                      "t_invoiceitem_id=d.t_invoiceitem_1 where t_invoice_1=" +
                      std::to_string(document()->getDocumentId()) + " order by row, t_itemvariable_1"),
                ElementsAre("1|-1|2", "1|" + std::to_string(findVariableId("Meret")) + "|XL", "2|-1|1",
                            "2|" + std::to_string(findVariableId("Meret")) + "|XS"));
  });
  lookAtItemData("see what was recorded", [] {
    ASSERT_EQ(unitTable()->getNumRows(), 2);
    EXPECT_EQ(unitTable()->getItemText(0, 1), "XL");
    EXPECT_EQ(unitTable()->getItemText(1, 1), "XS");
    EXPECT_THAT(choices(0, 1), ElementsAre(" ", "XS", "XL", "XXL"));
  });
  walk();
}

TEST_F(FieldRoad, deletesAVariableThatNothingAsksForAnyMore) {
  const int variable = findVariableId("Kiszerelés");
  const int values = count("select count(*) from t_invoiceitemdata where t_itemvariable_1=" + std::to_string(variable));
  ASSERT_GT(values, 0);
  const int rows = count("select count(*) from t_itemvariable where type>0");

  // The paint has it in both directions: neither key nor menu deletes it.
  openSettings();
  goToVariable("Kiszerelés");
  atSettings("press Delete and go on", [] {
    typeKey("Delete");
    typeKey("Right");
  });
  see(
      "going on without a question", [] { return settings() && settingsTable()->getCurrentColumn() == TYPE; },
      [=] { EXPECT_EQ(settingsTable()->getNumRows(), rows); });
  openSettingsMenu();
  then("deleting not being offered", [] {
    takeScreenshot("field-road-in-use");
    EXPECT_FALSE(findChildren<FXMenuCommand>(*menu()).at(1)->isEnabled());
    typeKey("Down");
    typeKey("Down");
    typeKey("Escape");
  });
  atSettings(
      "leave the settings", [] { typeKey("Escape"); }, [] { return !menu(); });
  seeMain();

  openFields("selyem");
  giveUp(kIncoming, "Kiszerelés");
  giveUp(kOutgoing, "Kiszerelés");
  acceptArticle();
  closeArticles();
  then("the paint not asking for it", [this] { EXPECT_THAT(assignments(kPaint), ElementsAre("5 1 100", "5 1 200")); });

  openSettings();
  goToVariable("Kiszerelés");
  atSettings("press Delete", [] { typeKey("Delete"); });
  atDialog<FXMessageBox>("say no", [=] {
    takeScreenshot("field-road-delete");
    EXPECT_EQ(dialogOf<FXMessageBox>()->getTitle(), "Törlés a táblázatból");
    EXPECT_THAT(messageText(), StartsWith("Biztos, hogy törli a kijelölt sorokat?"));
    EXPECT_THAT(messageText(), HasSubstr("A kijelölt mezőkhöz rögzített értékek száma: " + std::to_string(values)));
    typeKey("n", kAlt);
  });
  see("the variable being still there", [=] { return settings() && settingsTable()->getNumRows() == rows; });
  openSettingsMenu();
  then("deleting being offered", [] {
    EXPECT_TRUE(findChildren<FXMenuCommand>(*menu()).at(1)->isEnabled());
    typeKey("t", kAlt);
  });
  atDialog<FXMessageBox>("say yes", [=] {
    EXPECT_THAT(messageText(), HasSubstr(std::to_string(values)));
    typeKey("y", kAlt);
  });
  see("the variable being gone", [=] { return settings() && settingsTable()->getNumRows() == rows - 1; });
  acceptSettings();
  seeMain();
  then("the values being there without it", [=] {
    EXPECT_EQ(findVariableId("Kiszerelés"), -1);
    EXPECT_EQ(count("select count(*) from t_invoiceitemdata where t_itemvariable_1 is null"), values);
  });
  walk();
}

TEST_F(FieldRoad, goesOnWithWhatWasTypedWhenAListHasNoChoices) {
  atMain("open the menu of the modules", [] { typeKey("v", kAlt); });
  see(
      "the menu", [this] { return isOnScreen(*window->getPluginMenu()); }, [] { typeKey("b", kAlt); });
  atDialog<PluginListWindow>("open the settings", [] { typeKey("b", kAlt); });
  atSettings(
      "begin in the table", [] {}, [] { return settingsTable()->hasFocus(); });
  addList("Meret", "");
  acceptSettings();
  atDialog<FXMessageBox>("read what is missing", [this] {
    takeScreenshot("field-road-incomplete");
    EXPECT_EQ(dialogOf<FXMessageBox>()->getTitle(), "A lista elemei hiányosak!");
    EXPECT_EQ(messageText(), "Kérem töltse ki a hiányzó adatokat!");
    EXPECT_EQ(findVariableId("Meret"), -1);
    typeKey("Return");
  });
  atSettings("look at what was typed", [] {
    const int row = findVariable("Meret");
    EXPECT_EQ(settingsTable()->getItemText(row, TYPE), "Lista");
    EXPECT_TRUE(settingsTable()->isChecked(row, PER_UNIT));
    EXPECT_EQ(settingsTable()->getCurrentRow(), row);
    EXPECT_EQ(settingsTable()->getCurrentColumn(), PARAMETER);
  });
  typeIntoCell(settingsCells, "XS,XL");
  acceptSettings();
  atDialog<PluginListWindow>("close the modules", [] { typeKey("Escape"); });
  seeMain();
  then("the variable being stored", [this] {
    EXPECT_THAT(lines("select type, process, vvalue from t_itemvariable where name='Meret'"), ElementsAre("3|1|XS,XL"));
  });
  walk();
}

TEST_F(FieldRoad, reachesTheDocumentsThatAreOpen) {
  writeInvoice("lgyfa", "nyomtat", "3");
  assign("nyomtat", "Tárolási hely");
  lookAtItemData("see that what was typed has no field yet", [] { EXPECT_EQ(unitTable(), nullptr); });
  save();
  assign("nyomtat", "Gyári szám");
  lookAtItemData("see both in the stored document",
                 [] { EXPECT_THAT(columns(), ElementsAre("Tárolási hely", "Gyári szám")); });
  walk();
}

TEST_F(FieldRoad, leavesTheDocumentsThatAreOpenWhenItIsDeleted) {
  const std::string values = "select count(*) from t_invoiceitemdata where t_itemvariable_1 is null";
  findDocument("#8");
  see("the draft about the paint",
      [this] { return document() && document()->getDocumentId() == 8 && !document()->isChanged(); });
  deleteFieldOfPaint("Kiszerelés");
  lookAtItemData("see the other field alone", [] { EXPECT_THAT(columns(), ElementsAre("Szín")); });
  addItem("nyomtat", "1");
  save();
  then("its values being there without it", [=] { EXPECT_GT(count(values), 0); });
  walk();
}

TEST_F(FieldRoad, saysHowToStoreADocumentWhoseFieldWasDeletedMeanwhile) {
  const int documents = count("select count(*) from t_invoice");
  writeInvoice("lgyfa", "selyem", "3");
  deleteFieldOfPaint("Kiszerelés");
  lookAtItemData("see what was typed", [] { EXPECT_THAT(columns(), ElementsAre("Szín", "Kiszerelés")); });
  atDocument("save in vain", [] { typeKey("s", kCtrl); });
  atDialog<FXMessageBox>("read what can be done", [=] {
    takeScreenshot("field-road-deleted-meanwhile");
    EXPECT_THAT(messageText(), HasSubstr("A(z) „Zománcfesték, selyemfényű” tételhez rögzített egyéb adatok nem "
                                         "tárolhatók, talán mert időközben töröltek egy mezőt. Távolítsa el a tételt, "
                                         "és vegye fel újra."));
    EXPECT_EQ(count("select count(*) from t_invoice"), documents);
    typeKey("Return");
  });
  atDocument("remove the item", [] { typeKey("e", kAlt); });
  sayYes();
  addItem("selyem", "3");
  lookAtItemData("see the field that is left", [] { EXPECT_THAT(columns(), ElementsAre("Szín")); });
  save();
  then("the document being stored", [=] { EXPECT_EQ(count("select count(*) from t_invoice"), documents + 1); });
  walk();
}

}  // namespace
}  // namespace Quillane::Desktop
