// The settings dialog: sets the table of item variables up, fills it, judges its rows and governs what is deleted.
#include "ui/ItemDataSettingsPanel.h"

#include <libintl.h>

#include <algorithm>

#include "plugin/contract/Database.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Statement.h"
#include "plugin/contract/Tarnwell.h"
#include "ui/ItemDataSettingsPersister.h"
#include "ui/LabelText.h"

using namespace FX;

// Marks a text for the catalogues where it stands; it is translated where it is shown.
#define N_(text) text

namespace Quillane::Plugin::ItemData {

FXDEFMAP(ItemDataSettingsPanel)
ItemDataSettingsPanelMap[] = {
    FXMAPFUNC(SEL_COMMAND, ItemDataSettingsPanel::ID_DELETE, ItemDataSettingsPanel::onDelete),
    FXMAPFUNC(SEL_UPDATE, ItemDataSettingsPanel::ID_DELETE, ItemDataSettingsPanel::isDeleteEnabled),
    FXMAPFUNC(SEL_COMMAND, ItemDataSettingsPanel::ID_ACCEPT, ItemDataSettingsPanel::onOKButton),
};
static_assert(ARRAYNUMBER(ItemDataSettingsPanelMap) == 3, "the delete command, its state, and acceptance");
static_assert(ItemDataSettingsPanel::ID_DELETE == 90 && DBTable::ID_DELETE_ROWS == 90, "what the table's menu sends");
static_assert(ItemDataSettingsPanel::ID_ACCEPT == 61, "what the OK button sends");
static_assert(FXuint{ItemDataSettingsPanel::ID_DELETE} > FXDialogBox::ID_LAST, "no command of a dialog's");

FXIMPLEMENT(ItemDataSettingsPanel, FXDialogBox, ItemDataSettingsPanelMap, ARRAYNUMBER(ItemDataSettingsPanelMap))

namespace {

constexpr const char* kTextDomain = "QuillanePluginItemData";

enum Columns { NAME, TYPE, PER_UNIT, MANDATORY, PARAMETER, COLUMN_COUNT };

struct ColumnDescription {
  const char* title;
  int width;  // pixels; no column is narrower than its title
};

// The last one takes what is left of the dialog's width.
constexpr ColumnDescription kColumns[] = {
    {N_("Név"), 152}, {N_("Típus"), 76}, {N_("Egységenként rögzítendő"), 0}, {N_("Kötelező"), 0}, {N_("Paraméter"), 0},
};
static_assert(ARRAYNUMBER(kColumns) == COLUMN_COUNT, "a description for each column");

// What the header of a column needs beside its text, in pixels.
constexpr int kTitleMargin = 12;

constexpr FXint kButtonPadding = 8;
constexpr FXint kButtonSpacing = 6;

// A key and the shown text in each line; the keys are the field kinds' types.
constexpr const char* kTypes = N_("1\tSzöveg\n2\tDátum\n3\tLista");
const FXString kListType = "3";

constexpr const char* kHint = N_("A listák választható értékei a Paraméter oszlopba valók, vesszővel elválasztva.");

// Variables of other types are the system's own.
const FXString kVariablesSql =
    "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable where type < 100 and type>0;";

const FXString kCountAssignmentsSql =
    "select count(*) from t_itemvariable"
    " left join t_productitemdata pid on t_itemvariable_id=pid.t_itemvariable_1"
    " left join t_serviceitemdata sid on t_itemvariable_id=sid.t_itemvariable_1"
    " left join t_suiteitemdata suid on t_itemvariable_id=suid.t_itemvariable_1"
    " where pid.t_itemvariable_1=%id or sid.t_itemvariable_1=%id or suid.t_itemvariable_1=%id;";

const FXString kCountRecordedValuesSql = "select count(*) from t_invoiceitemdata where t_itemvariable_1=%id;";

// What the table's row header shows for a row that is not stored yet begins with this; else it is the row's key.
constexpr FXchar kUnstoredMark = '-';

// On purpose: a negative key, which only somebody's hand can have given, counts as none.
bool isStored(const FXString& rowKey) { return rowKey[0] != kUnstoredMark; }

int countFor(TarnwellDatabase* db, const FXString& sql, int variable) {
  Statement count(db, sql);
  count.setInt("id", variable);
  return count.queryInt(0);
}

}  // namespace

ItemDataSettingsPanel::ItemDataSettingsPanel()
    : db(nullptr), table(nullptr), app(nullptr), hint(nullptr), loaded(false) {}

ItemDataSettingsPanel::ItemDataSettingsPanel(PluginContainer* container, FXApp* application)
    : PluginSettingsDialogBox(container, application),
      db(static_cast<Tarnwell*>(application)->getDB()),
      table(nullptr),
      app(application),
      hint(nullptr),
      loaded(false) {
  createTable(getContentFrame());
  createButtons(getContentFrame());
  createHint(getContentFrame());
}

ItemDataSettingsPanel::~ItemDataSettingsPanel() = default;

// Whoever runs the dialog creates it again; what was typed meanwhile is kept.
void ItemDataSettingsPanel::create() {
  PluginSettingsDialogBox::create();
  if (loaded) return;
  setColumnTexts();
  loadVariables();
  loaded = true;
  if (table->getNumRows() > 0) table->setCurrentItem(0, NAME);
  // Whoever opens the dialog can type at once.
  if (id()) table->setFocus();
}

void ItemDataSettingsPanel::setColumnTexts() {
  table->setTableSize(0, COLUMN_COUNT, FALSE);
  for (FXint column = 0; column < COLUMN_COUNT; ++column) {
    const FXString text = dgettext(kTextDomain, kColumns[column].title);
    const FXint titleWidth = table->getColumnHeader()->getFont()->getTextWidth(text) + kTitleMargin;
    table->setColumnText(column, text);
    table->setColumnWidth(column, std::max(kColumns[column].width, titleWidth));
  }
  table->setColumnValues(TYPE, dgettext(kTextDomain, kTypes), true);
  table->setColumnType(PER_UNIT, DBTable::COLUMN_CHECK);
  table->setColumnType(MANDATORY, DBTable::COLUMN_CHECK);
}

FXuchar ItemDataSettingsPanel::checkItemList() { return findMissing().row < 0; }

int ItemDataSettingsPanel::save(ItemDataSettingsPersister* persister) {
  table->saveToDB(persister);
  return 1;
}

long ItemDataSettingsPanel::onOKButton(FXObject* sender, FXSelector sel, void* ptr) {
  table->acceptInput(TRUE);
  if (checkItemList()) return PluginSettingsDialogBox::onCmdAccept(sender, sel, ptr);
  FXMessageBox::information(app, MBOX_OK, dgettext(kTextDomain, "A lista elemei hiányosak!"), "%s",
                            dgettext(kTextDomain, "Kérem töltse ki a hiányzó adatokat!"));
  goTo(findMissing());
  return 0;
}

// On purpose: the answer is 0 also when rows were deleted.
long ItemDataSettingsPanel::onDelete(FXObject*, FXSelector, void*) {
  table->acceptInput(TRUE);
  const FXint firstRow = table->getSelStartRow();
  const FXint lastRow = std::min(table->getSelEndRow(), table->getNumRows() - 1);
  if (firstRow < 0 || lastRow < firstRow) return 0;
  const FXuint answer = FXMessageBox::question(this, MBOX_YES_NO, dgettext(kTextDomain, "Törlés a táblázatból"), "%s",
                                               askingForDeletion(firstRow, lastRow).text());
  if (answer != MBOX_CLICKED_YES) return 0;
  rememberDeleted(firstRow, lastRow);
  table->removeRows(firstRow, lastRow - firstRow + 1, FALSE);
  return 0;
}

// On purpose: only the current row is asked about, though the command deletes all that are selected.
long ItemDataSettingsPanel::isDeleteEnabled(FXObject* sender, FXSelector, void*) {
  const FXint row = table->getCurrentRow();
  if (row < 0 || row >= table->getNumRows()) return -1;
  const int assignments = countFor(db, kCountAssignmentsSql, FXIntVal(table->getRowText(row)));
  // On purpose: a count whose low byte is 0 is taken for none, as 256 is.
  if (static_cast<FXuchar>(assignments) == 0) {
    sender->handle(this, FXSEL(SEL_COMMAND, FXWindow::ID_ENABLE), nullptr);
    hint->setText(dgettext(kTextDomain, kHint));
    return 1;
  }
  sender->handle(this, FXSEL(SEL_COMMAND, FXWindow::ID_DISABLE), nullptr);
  tellInUse(row);
  return -1;
}

long ItemDataSettingsPanel::onContextMenu(FXObject*, FXSelector, void*) { return 1; }

void ItemDataSettingsPanel::createTable(FXComposite* container) {
  auto* frame =
      new FXHorizontalFrame(container, FRAME_LINE | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 4, 4);
  table = new DBTable(frame, this, ID_TABLE, TABLE_COL_SIZABLE | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 2, 2, 2, 2);
  // The keys say nothing to the user.
  table->setRowHeaderWidth(0);
}

void ItemDataSettingsPanel::createButtons(FXComposite* container) {
  auto* account = static_cast<Tarnwell*>(app);
  auto* row =
      new FXHorizontalFrame(container, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 0, 0, kButtonSpacing);
  const auto createButton = [this, row](const char* text, FXIcon* picture, FXSelector command) {
    new FXButton(row, text, picture, table, command, BUTTON_NORMAL | BUTTON_DEFAULT | ICON_BEFORE_TEXT, 0, 0, 0, 0,
                 kButtonPadding, kButtonPadding);
  };
  createButton(dgettext(kTextDomain, "Ú&j mező\tEgy új mező a táblázat végén (Ins)"), account->getAddIcon(),
               DBTable::ID_ADD_ROW);
  createButton(dgettext(kTextDomain, "&Törlés\tA kijelölt mezők törlése (Del)"), account->getDeleteIcon(),
               DBTable::ID_DELETE_ROWS);
}

void ItemDataSettingsPanel::createHint(FXComposite* container) {
  hint = new FXLabel(container, dgettext(kTextDomain, kHint), nullptr, LAYOUT_FILL_X | JUSTIFY_LEFT, 0, 0, 0, 0, 0, 0,
                     0, 0);
}

void ItemDataSettingsPanel::loadVariables() {
  app->beginWaitCursor();
  const bool read = Statement(db, kVariablesSql).execute(table->getRowLoader(), 1);
  app->endWaitCursor();
  if (read) return;
  FXString problem = FXStringFormat(dgettext(kTextDomain, "A mezők nem olvashatók be. %s"), db->getLastError().text());
  problem.substitute(". ", ".\n");  // a message box breaks no lines
  FXMessageBox::error(app, MBOX_OK, getTitle().text(), "%s", problem.text());
}

// The first cell that is empty and must not be; none is {-1, -1}.
FXTablePos ItemDataSettingsPanel::findMissing() const {
  for (FXint row = 0; row < table->getNumRows(); ++row) {
    if (table->getItemText(row, NAME).empty()) return {row, NAME};
    const FXString type = table->getValueKey(row, TYPE);
    if (type.empty()) return {row, TYPE};
    if (type == kListType && table->getItemText(row, PARAMETER).empty()) return {row, PARAMETER};
  }
  return {-1, -1};
}

void ItemDataSettingsPanel::goTo(FXTablePos cell) {
  table->killSelection();
  table->setCurrentItem(cell.row, cell.col);
  table->setAnchorItem(cell.row, cell.col);
  table->makePositionVisible(cell.row, cell.col);
  if (id() != 0) table->setFocus();
}

void ItemDataSettingsPanel::tellInUse(int row) const {
  hint->setText(FXStringFormat(dgettext(kTextDomain, "„%s” nem törölhető, mert cikkekhez van hozzárendelve."),
                               UI::labelText(table->getItemText(row, NAME)).text()));
}

FXString ItemDataSettingsPanel::askingForDeletion(int firstRow, int lastRow) const {
  const FXString question = dgettext(kTextDomain, "Biztos, hogy törli a kijelölt sorokat?");
  int values = 0;
  for (FXint row = firstRow; row <= lastRow; ++row) {
    const FXString key = table->getRowText(row);
    if (isStored(key)) values += countFor(db, kCountRecordedValuesSql, FXIntVal(key));
  }
  if (values == 0) return question;
  const char* warning = dgettext(kTextDomain,
                                 "A kijelölt mezőkhöz rögzített értékek száma: %d.\nEzek az adatbázisban megmaradnak, "
                                 "de a mezőjük nélkül.");
  return question + "\n\n" + FXStringFormat(warning, values);
}

void ItemDataSettingsPanel::rememberDeleted(int firstRow, int lastRow) {
  for (FXint row = firstRow; row <= lastRow; ++row) {
    const FXString key = table->getRowText(row);
    if (isStored(key)) table->getDeletedKeys().push_back(FXIntVal(key));
  }
}

}  // namespace Quillane::Plugin::ItemData
