// The settings dialog: what it shows, what it lets pass, what it lets be deleted, and what is saved.
#include "ui/ItemDataSettingsPanel.h"

#include <gmock/gmock.h>

#include "plugin/contract/Statement.h"
#include "tests/plugin/TextCatalogue.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingTarget.h"
#include "tests/ui/DialogFixture.h"
#include "tests/ui/SettingsFixture.h"
#include "ui/ItemDataSettingsPersister.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Quillane::Plugin::ItemData {
namespace {

const char* const kLoad =
    "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable where type < 100 and type>0;"
    "\n    ";

const std::string kCountAssignments =
    "select count(*) from t_itemvariable left join t_productitemdata pid on t_itemvariable_id=pid.t_itemvariable_1 "
    "left join t_serviceitemdata sid on t_itemvariable_id=sid.t_itemvariable_1 left join t_suiteitemdata suid on "
    "t_itemvariable_id=suid.t_itemvariable_1 where pid.t_itemvariable_1=%id or sid.t_itemvariable_1=%id or "
    "suid.t_itemvariable_1=%id;\n    id=";

class ItemDataSettingsPanelTest : public SettingsTest {
 protected:
  /// What asking for the state of the delete command came to: the panel's answer, and what the sender was told.
  struct State {
    long answer;
    bool enabled;
    bool disabled;
  };

  State askForState() const {
    struct Sender : FXObject {
      long handle(FXObject*, FXSelector sel, void*) override {
        enabled |= sel == FXSEL(SEL_COMMAND, FXWindow::ID_ENABLE);
        disabled |= sel == FXSEL(SEL_COMMAND, FXWindow::ID_DISABLE);
        return 1;
      }
      bool enabled = false;
      bool disabled = false;
    } sender;
    const long answer = panel->handle(&sender, FXSEL(SEL_UPDATE, ItemDataSettingsPanel::ID_DELETE), nullptr);
    return {answer, sender.enabled, sender.disabled};
  }

  void expectEnabled() const {
    const State state = askForState();
    EXPECT_EQ(state.answer, 1);
    EXPECT_TRUE(state.enabled);
    EXPECT_FALSE(state.disabled);
  }

  void expectDisabled() const {
    const State state = askForState();
    EXPECT_EQ(state.answer, -1);
    EXPECT_FALSE(state.enabled);
    EXPECT_TRUE(state.disabled);
  }

  void selectRows(FXint first, FXint last) const { table().selectRange(first, last, 0, PARAMETER); }

  long deleteSelected() const { return command(ItemDataSettingsPanel::ID_DELETE); }

  /// Saves as the container does and returns what is told.
  int save() const {
    ItemDataSettingsPersister persister(company.getDB());
    return panel->save(&persister);
  }

  /// Runs the panel and sends it acceptance; what execute returns.
  FXuint runAndAccept() const {
    const TestSupport::ModalDriver driver(TestSupport::accept);
    return panel->execute(PLACEMENT_DEFAULT);
  }
};

// ---- what is shown

TEST_F(ItemDataSettingsPanelTest, hasAColumnForEachPropertyOfAVariable) {
  open();
  ASSERT_EQ(table().getNumColumns(), 5);
  EXPECT_EQ(table().getColumnText(NAME), "Név");
  EXPECT_EQ(table().getColumnText(TYPE), "Típus");
  EXPECT_EQ(table().getColumnText(PER_UNIT), "Egységenként rögzítendő");
  EXPECT_EQ(table().getColumnText(MANDATORY), "Kötelező");
  EXPECT_EQ(table().getColumnText(PARAMETER), "Paraméter");
  EXPECT_EQ(table().getColumnType(NAME), DBTable::COLUMN_TEXT);
  EXPECT_EQ(table().getColumnType(TYPE), DBTable::COLUMN_CHOICE);
  EXPECT_EQ(table().getColumnType(PER_UNIT), 2);
  EXPECT_EQ(table().getColumnType(MANDATORY), 2);
  EXPECT_EQ(table().getColumnType(PARAMETER), DBTable::COLUMN_TEXT);
}

TEST_F(ItemDataSettingsPanelTest, setsTheColumnsOfAnEmptyTable) {
  fillVariables();
  open();
  panel->setColumnTexts();
  EXPECT_EQ(table().getNumRows(), 0);
  EXPECT_EQ(table().getNumColumns(), 5);
}

TEST_F(ItemDataSettingsPanelTest, offersTheThreeKindsOfFields) {
  open();
  addRow("", "1");
  addRow("", "2");
  addRow("", "3");
  EXPECT_THAT(rows(), ElementsAre("-1: |Szöveg|-|-|", "-2: |Dátum|-|-|", "-3: |Lista|-|-|"));
}

TEST_F(ItemDataSettingsPanelTest, translatesTitlesAndKinds) {
  const TextCatalogue catalogue("QuillanePluginItemData",
                                {{"Név", "Name"},
                                 {"Típus", "Type"},
                                 {"Egységenként rögzítendő", "Per unit"},
                                 {"Kötelező", "Mandatory"},
                                 {"Paraméter", "Parameter"},
                                 {"1\tSzöveg\n2\tDátum\n3\tLista", "1\tText\n2\tDate\n3\tList"}});
  fillVariables();
  open();
  std::vector<std::string> titles;
  for (FXint column = 0; column < table().getNumColumns(); ++column)
    titles.emplace_back(table().getColumnText(column).text());
  EXPECT_THAT(titles, ElementsAre("Name", "Type", "Per unit", "Mandatory", "Parameter"));
  EXPECT_THAT(rows(), ElementsAre("5: Gyári szám|Text|x|x|", "7: Szín|List|-|-|piros,kék", "12: Lejárat|Date|-|x|"));
}

TEST_F(ItemDataSettingsPanelTest, showsTheVariablesUnderTheirKeys) {
  fillVariables();
  EXPECT_THAT(watch([this] { open(); }), ElementsAre(kLoad));
  EXPECT_THAT(rows(),
              ElementsAre("5: Gyári szám|Szöveg|x|x|", "7: Szín|Lista|-|-|piros,kék", "12: Lejárat|Dátum|-|x|"));
}

TEST_F(ItemDataSettingsPanelTest, showsNothingOfACompanyWithoutVariables) {
  open();
  EXPECT_THAT(rows(), IsEmpty()) << "the quantity is not the user's";
}

TEST_F(ItemDataSettingsPanelTest, neverShowsInternalVariables) {
  company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                  {"1", "Nulla", "0", "0", "0", ""},
                                  {"2", "Mínusz kettő", "-2", "0", "0", ""},
                                  {"3", "Száz", "100", "0", "0", ""},
                                  {"4", "Ezer", "1000", "0", "0", ""},
                                  {"5", "Semmi", "NULL", "0", "0", ""},
                                  {"6", "Kilencvenkilenc", "99", "0", "0", ""},
                                  {"7", "Egy", "1", "0", "0", ""}});
  open();
  EXPECT_THAT(rows(), ElementsAre("6: Kilencvenkilenc|99|-|-|", "7: Egy|Szöveg|-|-|"));
}

TEST_F(ItemDataSettingsPanelTest, showsEachRowOnceWhenItIsCreatedAgain) {
  fillVariables();
  open();
  table().setItemText(0, NAME, "Széria");
  EXPECT_THAT(watch([this] { panel->create(); }), IsEmpty());
  EXPECT_THAT(rows(), ElementsAre("5: Széria|Szöveg|x|x|", "7: Szín|Lista|-|-|piros,kék", "12: Lejárat|Dátum|-|x|"))
      << "with what was typed";
}

TEST_F(ItemDataSettingsPanelTest, tellsItsTableToTalkToIt) {
  open();
  EXPECT_EQ(table().getTarget(), panel.get());
  EXPECT_EQ(table().getSelector(), 103u);
  EXPECT_EQ(panel->onContextMenu(nullptr, 0, nullptr), 1);
}

// ---- what is complete

/// Rows of a name, the key of a type and a parameter, and whether they can be accepted.
struct Rows {
  const char* what;
  std::vector<std::vector<const char*>> rows;
  int complete;
};
void PrintTo(const Rows& rows, std::ostream* out) { *out << rows.what; }

class CompleteRows : public ItemDataSettingsPanelTest, public testing::WithParamInterface<Rows> {};

TEST_P(CompleteRows, areTold) {
  open();
  for (const auto& row : GetParam().rows) addRow(row[0], row[1], row[2]);
  EXPECT_EQ(panel->checkItemList(), GetParam().complete);
}

const Rows kRows[] = {
    {"NoRows", {}, 1},
    {"TextWithoutParameter", {{"Név", "1", ""}}, 1},
    {"DateWithoutParameter", {{"Név", "2", ""}}, 1},
    {"ListWithParameter", {{"Név", "3", "A,B"}}, 1},
    {"ListWithoutParameter", {{"Név", "3", ""}}, 0},
    {"NoName", {{"", "1", ""}}, 0},
    {"NoType", {{"Név", "", ""}}, 0},
    {"NoTypeThoughThereIsAParameter", {{"Név", "", "A,B"}}, 0},
    {"EmptyRow", {{"", "", ""}}, 0},
    {"TypeBeyondTheKinds", {{"Név", "99", ""}}, 1},
    {"TypeThatBeginsAsTheListsDoes", {{"Név", "30", ""}}, 1},
    {"BlankName", {{" ", "1", ""}}, 1},
    {"LastRowIncomplete", {{"Első", "1", ""}, {"Második", "2", ""}, {"Harmadik", "3", ""}}, 0},
    {"FirstRowIncomplete", {{"", "1", ""}, {"Második", "2", ""}}, 0},
    {"AllRowsComplete", {{"Első", "1", ""}, {"Második", "2", ""}, {"Harmadik", "3", "A"}}, 1},
};

INSTANTIATE_TEST_SUITE_P(Of, CompleteRows, testing::ValuesIn(kRows), [](const auto& test) { return test.param.what; });

TEST_F(ItemDataSettingsPanelTest, acceptsStoredRows) {
  fillVariables();
  open();
  EXPECT_EQ(runAndAccept(), 1u);
}

TEST_F(ItemDataSettingsPanelTest, staysOpenWhenARowIsIncomplete) {
  fillVariables();
  open();
  addRow("Méret", "3");
  long answered = 1;
  const auto questions =
      answer(FXMessageBox::ID_CLICKED_OK, [&] { answered = command(ItemDataSettingsPanel::ID_ACCEPT); });
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0].title, "A lista elemei hiányosak!");
  EXPECT_EQ(questions[0].text, "Kérem töltse ki a hiányzó adatokat!");
  EXPECT_EQ(questions[0].buttons, 1);
  EXPECT_EQ(questions[0].owner, nullptr);
  EXPECT_EQ(answered, 0);
  EXPECT_THAT(rows(), ElementsAre("5: Gyári szám|Szöveg|x|x|", "7: Szín|Lista|-|-|piros,kék", "12: Lejárat|Dátum|-|x|",
                                  "-1: Méret|Lista|-|-|"))
      << "everything typed is still there";
}

TEST_F(ItemDataSettingsPanelTest, endsOnlyWhenWhatWasMissingIsThere) {
  open();
  addRow("Méret", "3");
  bool stillOpen = false;
  const TestSupport::ModalDriver driver([&](FXDialogBox& dialog) {
    // The box runs inside this answer, so that it needs a driver of its own.
    EXPECT_EQ(answer(FXMessageBox::ID_CLICKED_OK, [&] { TestSupport::accept(dialog); }).size(), 1u);
    stillOpen = testAccount().getModalWindow() == panel.get();
    table().setItemText(0, PARAMETER, "S,M,L");
    TestSupport::accept(dialog);
  });
  EXPECT_EQ(panel->execute(PLACEMENT_DEFAULT), 1u);
  EXPECT_TRUE(stillOpen);
}

TEST_F(ItemDataSettingsPanelTest, takesOverWhatIsBeingTypedWhenItIsAccepted) {
  fillVariables();
  open();
  table().startInput(0, NAME);
  auto fields = widgetsIn<FXTextField>(table());
  ASSERT_EQ(fields.size(), 1u);
  fields[0]->setText("");
  EXPECT_EQ(answer(FXMessageBox::ID_CLICKED_OK, [&] { command(ItemDataSettingsPanel::ID_ACCEPT); }).size(), 1u)
      << "the name is gone";
}

// ---- deleting

TEST_F(ItemDataSettingsPanelTest, deletesNothingWhenNothingIsSelected) {
  fillVariables();
  open();
  table().setCurrentItem(1, 0);
  table().killSelection();
  long answered = 1;
  EXPECT_THAT(answer(FXMessageBox::ID_CLICKED_YES, [&] { answered = deleteSelected(); }), IsEmpty());
  EXPECT_EQ(answered, 0);
  EXPECT_EQ(table().getNumRows(), 3);
}

TEST_F(ItemDataSettingsPanelTest, asksBeforeItDeletes) {
  fillVariables();
  open();
  selectRows(0, 1);
  long answered = 1;
  const auto questions = answer(FXMessageBox::ID_CLICKED_NO, [&] { answered = deleteSelected(); });
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0].title, "Törlés a táblázatból");
  EXPECT_EQ(questions[0].text, "Biztos, hogy törli a kijelölt sorokat?");
  EXPECT_EQ(questions[0].buttons, 2);
  EXPECT_EQ(questions[0].owner, panel.get());
  EXPECT_EQ(answered, 0);
  EXPECT_EQ(table().getNumRows(), 3) << "the answer was no";
  EXPECT_THAT(table().getDeletedKeys(), IsEmpty());
}

TEST_F(ItemDataSettingsPanelTest, deletesNothingWhenTheQuestionIsClosed) {
  fillVariables();
  open();
  selectRows(0, 1);
  EXPECT_EQ(answer(FXDialogBox::ID_CANCEL, [&] { deleteSelected(); }).size(), 1u);
  EXPECT_EQ(table().getNumRows(), 3);
}

TEST_F(ItemDataSettingsPanelTest, remembersTheKeysOfTheRowsThatItDeletes) {
  fillVariables();
  open();
  selectRows(1, 2);
  long answered = 1;
  answer(FXMessageBox::ID_CLICKED_YES, [&] { answered = deleteSelected(); });
  EXPECT_EQ(answered, 0);
  EXPECT_THAT(rows(), ElementsAre("5: Gyári szám|Szöveg|x|x|"));
  EXPECT_THAT(table().getDeletedKeys(), ElementsAre(7, 12));
}

TEST_F(ItemDataSettingsPanelTest, remembersNoKeyOfARowThatWasNeverStored) {
  fillVariables();
  open();
  addRow("Méret", "3", "S,M");
  selectRows(2, 3);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_THAT(rows(), ElementsAre("5: Gyári szám|Szöveg|x|x|", "7: Szín|Lista|-|-|piros,kék"));
  EXPECT_THAT(table().getDeletedKeys(), ElementsAre(12));
}

TEST_F(ItemDataSettingsPanelTest, deletesRowsOfWhichACellIsSelected) {
  fillVariables();
  open();
  table().selectRange(1, 1, PARAMETER, PARAMETER);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_THAT(table().getDeletedKeys(), ElementsAre(7));
  EXPECT_EQ(table().getNumRows(), 2);
}

TEST_F(ItemDataSettingsPanelTest, writesNothingWhileRowsAreDeleted) {
  fillVariables();
  open();
  selectRows(0, 2);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_EQ(company.query("select count(*) from t_itemvariable"), (Grid{{"4"}}));
}

TEST_F(ItemDataSettingsPanelTest, tellsHowManyRecordedValuesLoseTheirField) {
  fillVariables();
  record(5, 2);
  record(7, 3);
  record(12, 4);
  open();
  addRow("Méret", "1");
  selectRows(1, 3);
  const auto questions = answer(FXMessageBox::ID_CLICKED_NO, [&] { deleteSelected(); });
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0].title, "Törlés a táblázatból");
  EXPECT_EQ(questions[0].text,
            "Biztos, hogy törli a kijelölt sorokat?\n\nA kijelölt mezőkhöz rögzített értékek száma: 7.\nEzek az "
            "adatbázisban megmaradnak, de a mezőjük nélkül.");
}

TEST_F(ItemDataSettingsPanelTest, asksForRecordedValuesOfStoredRowsOnly) {
  fillVariables();
  open();
  addRow("Méret", "1");
  selectRows(2, 3);
  const std::string count = "select count(*) from t_invoiceitemdata where t_itemvariable_1=%id;\n    id=";
  EXPECT_THAT(watch([this] { answer(FXMessageBox::ID_CLICKED_NO, [this] { deleteSelected(); }); }),
              ElementsAre(count + "'12'"));
}

// ---- whether deleting is possible

TEST_F(ItemDataSettingsPanelTest, leavesTheCommandAloneWithoutACurrentRow) {
  fillVariables();
  open();
  table().setCurrentItem(-1, -1);
  State state{};
  EXPECT_THAT(watch([&] { state = askForState(); }), IsEmpty());
  EXPECT_EQ(state.answer, -1);
  EXPECT_FALSE(state.enabled || state.disabled);
}

TEST_F(ItemDataSettingsPanelTest, asksForTheAssignmentsOfTheCurrentRowsVariable) {
  fillVariables();
  open();
  table().setCurrentItem(1, 0);
  EXPECT_THAT(watch([this] { expectEnabled(); }), ElementsAre(kCountAssignments + "'7'"));
}

class AssignedVariable : public ItemDataSettingsPanelTest, public testing::WithParamInterface<const char*> {};

TEST_P(AssignedVariable, cannotBeDeleted) {
  fillVariables();
  assign(GetParam(), 7);
  open();
  table().setCurrentItem(1, 0);
  expectDisabled();
  for (const FXint row : {0, 2}) {
    table().setCurrentItem(row, 0);
    expectEnabled();
  }
}

INSTANTIATE_TEST_SUITE_P(To, AssignedVariable, testing::Values("product", "service", "suite"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(ItemDataSettingsPanelTest, letsNewRowsBeDeleted) {
  fillVariables();
  for (const char* article : {"product", "service", "suite"}) assign(article, 7);
  open();
  addRow("Méret", "1");
  table().setCurrentItem(3, 0);
  EXPECT_THAT(watch([this] { expectEnabled(); }), ElementsAre(kCountAssignments + "'-1'"));
}

TEST_F(ItemDataSettingsPanelTest, keepsAskingAboutTheCurrentRowOnly) {
  fillVariables();
  assign("product", 7);
  open();
  selectRows(0, 1);
  table().setCurrentItem(0, 0);
  expectEnabled();
}

TEST_F(ItemDataSettingsPanelTest, keepsTakingCountsWithALowByteOfZeroForNone) {
  fillVariables();
  assign("product", 7, 256);
  open();
  table().setCurrentItem(1, 0);
  expectEnabled();
}

TEST_F(ItemDataSettingsPanelTest, takesAnyOtherLargeCountForWhatItIs) {
  fillVariables();
  assign("product", 7, 257);
  open();
  table().setCurrentItem(1, 0);
  expectDisabled();
}

// ---- saving

TEST_F(ItemDataSettingsPanelTest, savesNewChangedAndDeletedRows) {
  fillVariables();
  record(12, 1);
  open();
  table().setItemText(0, NAME, "Széria");
  table().setValueKey(0, MANDATORY, "0");
  selectRows(2, 2);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  addRow("Méret", "3", "S,M,L");
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(stored(), (Grid{{"5", "Széria", "1", "1", "0", ""},
                            {"7", "Szín", "3", "0", "0", "piros,kék"},
                            {"8", "Méret", "3", "0", "0", "S,M,L"}}));
  EXPECT_EQ(company.query("select t_itemvariable_1, value from t_invoiceitemdata"), (Grid{{"NULL", "érték"}}))
      << "recorded values stay, without their variable";
}

TEST_F(ItemDataSettingsPanelTest, savesNothingWhenNothingChanged) {
  fillVariables();
  open();
  EXPECT_THAT(watch([this] { EXPECT_EQ(save(), 1); }), IsEmpty());
}

TEST_F(ItemDataSettingsPanelTest, keepsSavingSuccessfulWhenTheDatabaseRefuses) {
  fillVariables();
  open();
  table().setItemText(0, NAME, "Széria");
  addRow("Méret", "3", "S,M,L");
  company.run("create trigger refuse before insert on t_itemvariable begin select raise(abort, 'no'); end");
  int saved = 0;
  EXPECT_EQ(answer(FXDialogBox::ID_CANCEL, [&] { saved = save(); }).size(), 1u) << "the user is told";
  EXPECT_EQ(saved, 1);
  EXPECT_EQ(stored(), (Grid{{"5", "Gyári szám", "1", "1", "1", "NULL"},
                            {"7", "Szín", "3", "0", "0", "piros,kék"},
                            {"12", "Lejárat", "2", "0", "1", ""}}))
      << "all or nothing";
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
