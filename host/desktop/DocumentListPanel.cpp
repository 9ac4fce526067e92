// The list of documents, and the search in it.
#include "host/desktop/DocumentListPanel.h"

#include <libintl.h>

#include <algorithm>

#include "host/document/NumberText.h"
#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(DocumentListPanel)
documentListPanelMap[] = {
    FXMAPFUNC(SEL_CHANGED, DocumentListPanel::ID_SEARCH, DocumentListPanel::onSearchChanged),
    FXMAPFUNC(SEL_TIMEOUT, DocumentListPanel::ID_SEARCH_NOW, DocumentListPanel::onSearchNow),
    FXMAPFUNC(SEL_COMMAND, DocumentListPanel::ID_CLEAR_SEARCH, DocumentListPanel::onClearSearch),
    FXMAPFUNC(SEL_UPDATE, DocumentListPanel::ID_CLEAR_SEARCH, DocumentListPanel::onUpdClearSearch),
    FXMAPFUNC(SEL_COMMAND, DocumentListPanel::ID_LIST, DocumentListPanel::onPicked),
};
static_assert(ARRAYNUMBER(documentListPanelMap) == 5);

FXIMPLEMENT(DocumentListPanel, FXVerticalFrame, documentListPanelMap, ARRAYNUMBER(documentListPanelMap))

namespace {

constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 6;
constexpr FXuint kSearchPause = 250;     // milliseconds
constexpr int kDraftsBehind = 10000000;  // what has no number yet stands behind all numbers

enum Column { NUMBER, PARTNER, DATE, STATUS, SUM };

/// The number as it is shown: what has none yet is called by its key.
FXString shownNumber(const Host::DocumentRow& document) {
  return document.number.empty() ? FXStringFormat("#%d", document.id) : document.number;
}

RecordList::Row makeRow(const Host::DocumentRow& document) {
  RecordList::Row row;
  row.id = document.id;
  row.texts = {shownNumber(document), document.partner, document.date, document.statusName,
               document.sum.empty() ? FXString("–") : Host::displayNumber(document.sum)};
  row.sortKeys = {document.number.empty() ? FXStringVal(kDraftsBehind + document.id) : document.number,
                  document.partner, document.date, document.statusName, document.sum};
  return row;
}

}  // namespace

DocumentListPanel::DocumentListPanel(FXComposite* parentWindow, Tarnwell& programAccount, const Host::IconSet& icons,
                                     FXObject* panelTarget, FXSelector selector)
    : FXVerticalFrame(parentWindow, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, kPadding, kPadding, kPadding, kPadding,
                      kSpacing, kSpacing),
      account(&programAccount) {
  target = panelTarget;
  message = selector;
  createSearch(icons);
  createList();
}

DocumentListPanel::~DocumentListPanel() { getApp()->removeTimeout(this, ID_SEARCH_NOW); }

void DocumentListPanel::createSearch(const Host::IconSet& icons) {
  FXHorizontalFrame* line = new FXHorizontalFrame(this, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing, 0);
  new FXLabel(line, dgettext("quillane", "&Keresés:"), icons.get(Host::Icon::SEARCH),
              LABEL_NORMAL | LAYOUT_CENTER_Y | ICON_BEFORE_TEXT, 0, 0, 0, 0, 0, 0, 0, 0);
  searchField = new FilterField(line, nullptr, this, ID_SEARCH, TEXTFIELD_NORMAL | LAYOUT_FILL_X | LAYOUT_CENTER_Y);
  searchField->setTipText(
      dgettext("quillane", "Szám, partner, cikk vagy rögzített adat, kis- és nagybetűvel egyaránt"));
  searchField->setHelpText(dgettext(
      "quillane", "Bizonylat keresése szám, partner, cikk vagy rögzített adat szerint; Esc: minden bizonylat"));
  FXButton* clear =
      new FXButton(line, dgettext("quillane", "×\tA keresés törlése\tMinden bizonylat megjelenítése"), nullptr, this,
                   ID_CLEAR_SEARCH, BUTTON_TOOLBAR | FRAME_RAISED | LAYOUT_FILL_Y, 0, 0, 0, 0, 8, 8, 0, 0);
  clear->disable();
}

void DocumentListPanel::createList() {
  list = new RecordList(this, this, ID_LIST);
  list->addColumn(dgettext("quillane", "Szám"), 80, RecordList::RIGHT);
  list->addColumn(dgettext("quillane", "Partner"), 260);
  list->addColumn(dgettext("quillane", "Dátum"), 100);
  list->addColumn(dgettext("quillane", "Állapot"), 250);
  list->addColumn(dgettext("quillane", "Összeg"), 130, RecordList::RIGHT);
  list->setStretchColumn(PARTNER);
  list->allowSeveral();
  list->sortBy(DATE, true);
  searchField->setList(list);
}

bool DocumentListPanel::reload(FXString& error) {
  std::vector<Host::DocumentRow> read;
  if (account->getDB() && !Host::DocumentList::read(*account->getDB(), read, error)) return false;
  documents = std::move(read);
  std::vector<RecordList::Row> rows;
  for (const Host::DocumentRow& document : documents) rows.push_back(makeRow(document));
  list->setRows(std::move(rows));
  dropPendingSearch();
  return search(error);
}

std::vector<Host::DocumentRow> DocumentListPanel::getSelectedRows() const {
  std::vector<Host::DocumentRow> selected;
  for (const int id : list->getSelectedIds()) {
    // The documents are in the order of their ids.
    const auto found =
        std::lower_bound(documents.begin(), documents.end(), id,
                         [](const Host::DocumentRow& document, int wanted) { return document.id < wanted; });
    if (found != documents.end() && found->id == id) selected.push_back(*found);
  }
  return selected;
}

void DocumentListPanel::clearSearch() {
  searchField->setText(FXString::null);
  dropPendingSearch();
  searchAndTell();
}

bool DocumentListPanel::search(FXString& error) {
  FXString text = searchField->getText();
  searching = !text.trim().empty() && account->getDB();
  if (!searching) {
    list->showAll();
    return true;
  }
  std::set<int> found;
  if (!Host::DocumentList::find(*account->getDB(), text, found, error)) return false;
  // What stands in the list for a missing number is found as well, by its mark.
  if (text[0] == '#')
    for (const Host::DocumentRow& document : documents)
      if (shownNumber(document).find(text) >= 0) found.insert(document.id);
  list->setVisibleIds(found);
  if (list->getNumShown() > 0 && list->getCurrentId() == 0) list->setCurrentId(list->getShownIds().front());
  return true;
}

void DocumentListPanel::searchAndTell() {
  FXString error;
  if (!search(error)) {
    FXMessageBox::error(this, MBOX_OK, dgettext("quillane", "Keresés"), "%s", Host::messageText(error).text());
  }
  if (target) target->tryHandle(this, FXSEL(SEL_CHANGED, message), nullptr);
}

bool DocumentListPanel::dropPendingSearch() {
  const bool pending = getApp()->hasTimeout(this, ID_SEARCH_NOW);
  getApp()->removeTimeout(this, ID_SEARCH_NOW);
  return pending;
}

long DocumentListPanel::onSearchChanged(FXObject*, FXSelector, void*) {
  getApp()->addTimeout(this, ID_SEARCH_NOW, kSearchPause);  // again from the beginning at every letter
  return 1;
}

long DocumentListPanel::onSearchNow(FXObject*, FXSelector, void*) {
  searchAndTell();
  return 1;
}

long DocumentListPanel::onClearSearch(FXObject*, FXSelector, void*) {
  clearSearch();
  searchField->setFocus();
  return 1;
}

long DocumentListPanel::onUpdClearSearch(FXObject* sender, FXSelector, void*) {
  const FXuint command = searchField->getText().empty() ? ID_DISABLE : ID_ENABLE;
  sender->handle(this, FXSEL(SEL_COMMAND, command), nullptr);
  return 1;
}

long DocumentListPanel::onPicked(FXObject*, FXSelector, void*) {
  // Return came quicker than the search: it means the document that will be found.
  if (dropPendingSearch()) searchAndTell();
  if (target) target->tryHandle(this, FXSEL(SEL_COMMAND, message), nullptr);
  return 1;
}

}  // namespace Quillane::Desktop
