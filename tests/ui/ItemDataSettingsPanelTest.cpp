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

TEST_F(ItemDataSettingsPanelTest, translatesWhatItSaysAndAsks) {
  const TextCatalogue catalogue("QuillanePluginItemData",
                                {{"A lista elemei hiányosak!", "The list is incomplete!"},
                                 {"Kérem töltse ki a hiányzó adatokat!", "Please fill in what is missing!"},
                                 {"Törlés a táblázatból", "Delete from the table"},
                                 {"Biztos, hogy törli a kijelölt sorokat?", "Delete the selected rows?"}});
  open();
  addRow("", "1");
  const auto told = answer(FXMessageBox::ID_CLICKED_OK, [&] { command(ItemDataSettingsPanel::ID_ACCEPT); });
  selectRows(0, 0);
  const auto asked = answer(FXMessageBox::ID_CLICKED_NO, [&] { deleteSelected(); });
  ASSERT_EQ(told.size(), 1u);
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told[0].title, "The list is incomplete!");
  EXPECT_EQ(told[0].text, "Please fill in what is missing!");
  EXPECT_EQ(asked[0].title, "Delete from the table");
  EXPECT_EQ(asked[0].text, "Delete the selected rows?");
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

TEST_F(ItemDataSettingsPanelTest, keepsItsTableInALinedFrame) {
  open();
  const auto* frame = dynamic_cast<FXHorizontalFrame*>(table().getParent());
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->getParent(), panel->getContentFrame());
  EXPECT_EQ(frame->getFrameStyle(), FRAME_LINE);
  EXPECT_EQ(frame->getLayoutHints() & LAYOUT_FILL, LAYOUT_FILL);
  for (const FXint padding : {frame->getPadLeft(), frame->getPadRight(), frame->getPadTop(), frame->getPadBottom()})
    EXPECT_EQ(padding, 0);
  EXPECT_EQ(frame->getHSpacing(), 4);
  EXPECT_EQ(frame->getVSpacing(), 4);
  EXPECT_EQ(table().getTableStyle() & TABLE_COL_SIZABLE, TABLE_COL_SIZABLE);
  EXPECT_EQ(table().getTableStyle() & TABLE_ROW_SIZABLE, 0u);
  EXPECT_EQ(table().getLayoutHints() & LAYOUT_FILL, LAYOUT_FILL);
  EXPECT_EQ(table().getMarginLeft() + table().getMarginRight() + table().getMarginTop() + table().getMarginBottom(), 8);
}

TEST_F(ItemDataSettingsPanelTest, answersItsThreeMessagesOnly) {
  open();
  table().setTarget(nullptr);
  for (const FXuint id : {FXuint{ItemDataSettingsPanel::ID_TABLE}, FXuint{DBTable::ID_ADD_ROW}}) {
    for (const FXuint type : {SEL_COMMAND, SEL_UPDATE, SEL_CHANGED, SEL_REPLACED, SEL_SELECTED})
      EXPECT_EQ(panel->handle(&table(), FXSEL(type, id), nullptr), 0) << type << " " << id;
  }
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

TEST_F(ItemDataSettingsPanelTest, acceptsATableWithoutRows) {
  open();
  EXPECT_EQ(runAndAccept(), 1u);
  EXPECT_THAT(watch([this] { EXPECT_EQ(save(), 1); }), IsEmpty());
}

TEST_F(ItemDataSettingsPanelTest, takesWhatIsMissingInAStoredRowForMissing) {
  company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                  {"5", "Szín", "3", "0", "0", "NULL"}});
  open();
  EXPECT_EQ(panel->checkItemList(), 0) << "a list that another program stored without choices";
  table().setItemText(0, PARAMETER, "piros");
  EXPECT_EQ(panel->checkItemList(), 1);
  company.run("update t_itemvariable set name=null, vvalue='piros'");
  open();
  EXPECT_EQ(panel->checkItemList(), 0) << "a name that is none";
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

TEST_F(ItemDataSettingsPanelTest, goesToWhatIsMissing) {
  fillVariables();
  open();
  addRow("Méret", "");
  table().setCurrentItem(0, NAME);
  const auto refuse = [this] {
    answer(FXMessageBox::ID_CLICKED_OK, [this] { command(ItemDataSettingsPanel::ID_ACCEPT); });
    return std::pair{table().getCurrentRow(), table().getCurrentColumn()};
  };
  EXPECT_EQ(refuse(), (std::pair{3, int{TYPE}}));
  table().setValueKey(3, TYPE, "3");
  EXPECT_EQ(refuse(), (std::pair{3, int{PARAMETER}}));
  table().setItemText(1, NAME, "");
  EXPECT_EQ(refuse(), (std::pair{1, int{NAME}})) << "the first row comes first";
  EXPECT_FALSE(table().isAnythingSelected()) << "what is typed replaces nothing else";
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

TEST_F(ItemDataSettingsPanelTest, keepsAnsweringZeroWhenItDeletedRows) {
  fillVariables();
  open();
  selectRows(0, 0);
  long answered = 1;
  answer(FXMessageBox::ID_CLICKED_YES, [&] { answered = deleteSelected(); });
  EXPECT_EQ(table().getNumRows(), 2);
  EXPECT_EQ(answered, 0);
}

TEST_F(ItemDataSettingsPanelTest, deletesTheRowThatIsBeingEdited) {
  fillVariables();
  open();
  table().startInput(1, NAME);
  auto fields = widgetsIn<FXTextField>(table());
  ASSERT_EQ(fields.size(), 1u);
  fields[0]->setText("Árnyalat");
  selectRows(1, 1);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_THAT(rows(), ElementsAre("5: Gyári szám|Szöveg|x|x|", "12: Lejárat|Dátum|-|x|"));
  EXPECT_THAT(widgetsIn<FXTextField>(table()), IsEmpty());
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(stored().size(), 2u);
}

TEST_F(ItemDataSettingsPanelTest, keepsWhatIsTypedInARowThatIsNotDeleted) {
  fillVariables();
  open();
  table().startInput(2, NAME);
  auto fields = widgetsIn<FXTextField>(table());
  ASSERT_EQ(fields.size(), 1u);
  fields[0]->setText("Szavatosság");
  selectRows(0, 1);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_THAT(rows(), ElementsAre("12: Szavatosság|Dátum|-|x|"));
}

TEST_F(ItemDataSettingsPanelTest, canLoseAllItsRowsAndGetNewOnes) {
  fillVariables();
  open();
  selectRows(0, 2);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(table().getDeletedKeys(), ElementsAre(5, 7, 12));
  State state{};
  EXPECT_THAT(watch([&] { state = askForState(); }), IsEmpty()) << "there is no current row";
  EXPECT_EQ(state.answer, -1);
  EXPECT_EQ(panel->checkItemList(), 1);
  addRow("Méret", "1");
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(stored(), (Grid{{"1", "Méret", "1", "0", "0", ""}}));
}

TEST_F(ItemDataSettingsPanelTest, keepsAVariableStoredWhoseKeyLooksLikeANewRows) {
  company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                  {"-2", "Kézzel beírt", "1", "0", "0", ""}});
  open();
  addRow("Első", "1");
  addRow("Második", "2");
  EXPECT_THAT(rows(), ElementsAre("-2: Kézzel beírt|Szöveg|-|-|", "-1: Első|Szöveg|-|-|", "-3: Második|Dátum|-|-|"));
  selectRows(0, 0);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_THAT(table().getDeletedKeys(), IsEmpty());
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(stored(), (Grid{{"-2", "Kézzel beírt", "1", "0", "0", ""},
                            {"1", "Első", "1", "0", "0", ""},
                            {"2", "Második", "2", "0", "0", ""}}));
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

TEST_F(ItemDataSettingsPanelTest, tellsWhichVariableCannotBeDeleted) {
  fillVariables();
  company.run("update t_itemvariable set name='R&D' || char(9) || '100%' where t_itemvariable_id=7");
  assign("product", 7);
  open();
  const auto says = [this](const char* sentence) {
    for (const FXLabel* label : widgetsIn<FXLabel>(*panel))
      if (label->getText() == sentence) return true;
    return false;
  };
  const char* const inUse = "„R&D 100%” nem törölhető, mert cikkekhez van hozzárendelve.";
  table().setCurrentItem(1, 0);
  expectDisabled();
  EXPECT_TRUE(says(inUse));
  table().setCurrentItem(0, 0);
  expectEnabled();
  EXPECT_FALSE(says(inUse)) << "that is another one";
}

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

TEST_F(ItemDataSettingsPanelTest, savesOddTextsAsTheyAreTyped) {
  const char* const name = "100% \"új\"\t'x';--\n%id & társa";
  open();
  addRow(name, "3", "50%,\"a\"");
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(stored(), (Grid{{"1", name, "3", "0", "0", "50%,\"a\""}}));
  open();
  EXPECT_EQ(table().getItemText(0, NAME), name);
  table().startInput(0, NAME);
  table().acceptInput(TRUE);
  EXPECT_FALSE(table().isChangedRow(0)) << "edited and left as it was";
}

TEST_F(ItemDataSettingsPanelTest, leavesWhatItDoesNotKnowAsItIsStored) {
  company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                  {"5", "Különös", "7", "NULL", "2", "NULL"},
                                  {"6", "Másik", "8", "NULL", "NULL", "NULL"}});
  open();
  EXPECT_THAT(rows(), ElementsAre("5: Különös|7|-|x|", "6: Másik|8|-|-|"));
  EXPECT_EQ(panel->checkItemList(), 1);
  EXPECT_THAT(watch([this] { EXPECT_EQ(save(), 1); }), IsEmpty());
  table().setItemText(0, NAME, "Rejtélyes");
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(stored(), (Grid{{"5", "Rejtélyes", "7", "NULL", "2", ""}, {"6", "Másik", "8", "NULL", "NULL", "NULL"}}));
}

TEST_F(ItemDataSettingsPanelTest, tellsThatAnotherProgramDeletedTheVariable) {
  fillVariables();
  open();
  table().setItemText(0, NAME, "Széria");
  table().setItemText(2, NAME, "Szavatosság");
  company.run("delete from t_itemvariable where t_itemvariable_id=5");
  std::string told;
  {
    const TestSupport::ModalDriver driver([&](FXDialogBox& dialog) {
      for (const FXText* text : widgetsIn<FXText>(dialog)) told += text->getText().text();
      TestSupport::cancel(dialog);
    });
    EXPECT_EQ(save(), 1);
  }
  EXPECT_THAT(told,
              testing::StartsWith("A táblázat 1. sora nem menthető: \"Széria\".\nA módosítandó sor már nincs meg"));
  EXPECT_EQ(stored(), (Grid{{"7", "Szín", "3", "0", "0", "piros,kék"}, {"12", "Lejárat", "2", "0", "1", ""}}))
      << "all or nothing";
}

TEST_F(ItemDataSettingsPanelTest, deletesWithoutAWordWhatAnotherProgramDeletedAlready) {
  fillVariables();
  open();
  selectRows(0, 0);
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  company.run("delete from t_itemvariable where t_itemvariable_id=5");
  EXPECT_THAT(answer(FXDialogBox::ID_CANCEL, [&] { EXPECT_EQ(save(), 1); }), IsEmpty());
  EXPECT_EQ(stored().size(), 2u);
}

TEST_F(ItemDataSettingsPanelTest, deletesItsAssignmentsWithAVariable) {
  fillVariables();
  assign("product", 7, 2);
  open();
  selectRows(0, 2);
  table().setCurrentItem(0, NAME);
  expectEnabled();  // only the current row is asked about
  answer(FXMessageBox::ID_CLICKED_YES, [&] { deleteSelected(); });
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(company.query("select count(*) from t_productitemdata"), (Grid{{"0"}}));
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
