// Tool tips for texts that their cells cannot show whole.
#include "host/windows/CutOffTip.h"

#include "host/windows/WrappedText.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr FXTablePos kNowhere = {-1, -1};

bool isSame(const FXTablePos& a, const FXTablePos& b) { return a.row == b.row && a.col == b.col; }

}  // namespace

FXString CutOffTip::getText(const FXTable& table, FXint row, FXint column) {
  if (row < 0 || row >= table.getNumRows() || column < 0 || column >= table.getNumColumns()) return FXString::null;
  const FXString text = table.getItemText(row, column);
  const FXint room = table.getColumnWidth(column) - table.getMarginLeft() - table.getMarginRight();
  return table.getFont()->getTextWidth(text) <= room ? FXString::null : text;
}

long CutOffTip::onMotion(const FXTable& table, const FXEvent& event) {
  const FXTablePos before = pointed;
  pointed = {table.rowAtY(event.win_y), table.colAtX(event.win_x)};
  return moving || !isSame(before, pointed);
}

// The toolkit places a tip when there was none before.
long CutOffTip::onQueryTip(FXTable& table, FXObject* sender) {
  FXint x = 0;
  FXint y = 0;
  FXuint buttons = 0;
  table.getCursorPosition(x, y, buttons);
  const FXTablePos cell = {table.rowAtY(y), table.colAtX(x)};
  moving = !isSame(shown, kNowhere) && !isSame(shown, cell);
  FXString text = moving ? FXString::null : wrapText(getText(table, cell.row, cell.col));
  shown = text.empty() ? kNowhere : cell;
  if (text.empty()) return 0;
  sender->handle(&table, FXSEL(SEL_COMMAND, FXWindow::ID_SETSTRINGVALUE), &text);
  return 1;
}

}  // namespace Quillane::Host
