// The rows of a document's items.
#include "host/desktop/DocumentItemTable.h"

#include <libintl.h>

#include <algorithm>

#include "host/document/NumberText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(DocumentItemTable)
documentItemTableMap[] = {
    FXMAPFUNC(SEL_MOTION, 0, DocumentItemTable::onMotion),
    FXMAPFUNC(SEL_QUERY_TIP, 0, DocumentItemTable::onQueryTip),
};
static_assert(ARRAYNUMBER(documentItemTableMap) == 2);

FXIMPLEMENT(DocumentItemTable, InvoiceItemTable, documentItemTableMap, ARRAYNUMBER(documentItemTableMap))

#define N_(text) text

namespace {

constexpr FXint kRowPadding = 6;
constexpr FXint kCellMargin = 4;
constexpr FXint kLeastWidth = 160;
constexpr FXint kGridWidth = 2;  // at the table's edges
constexpr FXColor kGridColor = FXRGB(216, 216, 216);

struct ColumnForm {
  const char* title;
  FXint characters;  // room for so many digits
  FXuint justify;
};

constexpr ColumnForm kColumns[DocumentItemTable::COLUMN_COUNT] = {
    {"#", 3, FXTableItem::RIGHT},
    {N_("Fajta"), 12, FXTableItem::LEFT},
    {N_("Megnevezés"), 28, FXTableItem::LEFT},
    {N_("Mennyiség"), 10, FXTableItem::RIGHT},
    {N_("Egység"), 8, FXTableItem::LEFT},
    {N_("Egységár"), 11, FXTableItem::RIGHT},
    {N_("Érték"), 11, FXTableItem::RIGHT},
    {N_("Egyéb adatok"), 30, FXTableItem::LEFT},
};

FXString translated(const char* text) { return dgettext("quillane", text); }

FXString nameOfKind(int kind) {
  switch (kind) {
    case InvoiceItem::ARTICLE_PRODUCT:
      return dgettext("quillane", "Termék");
    case InvoiceItem::ARTICLE_SERVICE:
      return dgettext("quillane", "Szolgáltatás");
    case InvoiceItem::ARTICLE_SUITE:
      return dgettext("quillane", "Csomag");
    default:
      return dgettext("quillane", "Egyéb");
  }
}

}  // namespace

DocumentItemTable::DocumentItemTable(FXComposite* container, InvoiceForm* invoiceForm, FXObject* receiver,
                                     FXSelector selector, FXuint opts)
    : InvoiceItemTable(container, invoiceForm, receiver, selector, opts) {
  setTableSize(0, COLUMN_COUNT);
  for (FXint column = 0; column < COLUMN_COUNT; ++column) {
    setColumnText(column, translated(kColumns[column].title));
    setColumnJustify(column, kColumns[column].justify | FXHeaderItem::CENTER_Y);
  }
  setMarginLeft(kCellMargin);
  setMarginRight(kCellMargin);
  showHorzGrid(TRUE);
  showVertGrid(TRUE);
  setGridColor(kGridColor);
}

void DocumentItemTable::create() {
  InvoiceItemTable::create();
  const FXint digit = getFont()->getTextWidth("0", 1);
  for (FXint column = 0; column < COLUMN_COUNT; ++column)
    setColumnWidth(column, digit * kColumns[column].characters + 2 * kCellMargin);
  setDefRowHeight(getFont()->getFontHeight() + kRowPadding);
}

void DocumentItemTable::layout() {
  InvoiceItemTable::layout();
  FXint others = 0;
  for (FXint column = 0; column < ATTACHED_DATA; ++column) others += getColumnWidth(column);
  const FXint room = std::max(viewport_w - others - kGridWidth, kLeastWidth);
  if (room == getColumnWidth(ATTACHED_DATA)) return;
  setColumnWidth(ATTACHED_DATA, room);
  InvoiceItemTable::layout();
}

void DocumentItemTable::showItems(const DocumentSession& session, int row) {
  const FXint count = session.countItems();
  if (count > getNumRows()) insertRows(getNumRows(), count - getNumRows());
  if (count < getNumRows()) removeRows(count, getNumRows() - count);
  for (FXint i = 0; i < count; ++i) showItem(session, i);
  killSelection();
  if (count == 0) {
    setCurrentItem(-1, -1);
    return;
  }
  const FXint shown = std::clamp(row, 0, count - 1);
  setCurrentItem(shown, 0);
  setAnchorItem(shown, 0);
  selectRow(shown);
  makePositionVisible(shown, 0);
}

void DocumentItemTable::showItem(const DocumentSession& session, int row) {
  const ItemInput item = session.getInput(row);
  const FXString texts[COLUMN_COUNT] = {
      FXStringVal(row + 1),
      nameOfKind(item.articleKind),
      item.name,
      Host::displayNumber(item.quantity),
      item.unit,
      Host::displayNumber(item.price),
      Host::displayNumber(Host::getItemValue(item.quantity, item.price)),
      session.getAttachedText(row),
  };
  for (FXint column = 0; column < COLUMN_COUNT; ++column) {
    setItemText(row, column, texts[column]);
    setItemJustify(row, column, kColumns[column].justify | FXTableItem::CENTER_Y);
  }
}

long DocumentItemTable::onMotion(FXObject* sender, FXSelector selector, void* ptr) {
  const long asksAnew = tip.onMotion(*this, *static_cast<FXEvent*>(ptr));
  return InvoiceItemTable::onMotion(sender, selector, ptr) || asksAnew;
}

long DocumentItemTable::onQueryTip(FXObject* sender, FXSelector, void*) { return tip.onQueryTip(*this, sender); }

int DocumentItemTable::getCurrentItemIndex() const {
  const FXint row = getCurrentRow();
  return row < getNumRows() ? row : -1;
}

}  // namespace Quillane::Desktop
