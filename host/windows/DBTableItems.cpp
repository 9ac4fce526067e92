// The cells of a table of records whose texts are not what is stored.
#include "host/windows/DBTableItems.h"

#include <algorithm>

#include "host/windows/ChoiceEditor.h"

using namespace FX;

namespace Quillane {

namespace {

const FXString kChecked = "1";
const FXString kUnchecked = "0";

constexpr FXint kVisibleChoices = 20;

constexpr FXint kBoxSize = 13;

constexpr FXint kArrowWidth = 7;
constexpr FXint kArrowHeight = 4;
constexpr FXint kArrowMargin = 4;

// Where the tick's stroke turns, from the box's corner.
constexpr FXint kTickStart = 3;
constexpr FXint kTickTurn = 5;
constexpr FXint kTickEnd = 9;
constexpr FXint kTickThickness = 3;

void drawTick(FXDC& dc, FXint x, FXint y) {
  for (FXint line = 0; line < kTickThickness; ++line) {
    dc.drawLine(x + kTickStart, y + kTickTurn + line, x + kTickTurn, y + kTickTurn + 2 + line);
    dc.drawLine(x + kTickTurn, y + kTickTurn + 2 + line, x + kTickEnd, y + kTickStart + line);
  }
}

/// Draws a triangle that points down.
void drawArrow(FXDC& dc, FXint x, FXint y) {
  for (FXint line = 0; line < kArrowHeight; ++line) dc.fillRectangle(x + line, y + line, kArrowWidth - 2 * line, 1);
}

}  // namespace

DBTableChoiceItem::DBTableChoiceItem(Choices offered) : FXTableItem(FXString::null), choices(std::move(offered)) {
  setJustify(LEFT);
}

void DBTableChoiceItem::setKey(const FXString& stored) {
  const FXint index = findKey(stored);
  if (index >= 0) {
    choose(index);
    return;
  }
  key = stored;
  label = stored;
}

void DBTableChoiceItem::setText(const FXString& text) {
  if (text.empty()) {
    key.clear();
    label.clear();
    return;
  }
  choose(findText(text));
}

FXWindow* DBTableChoiceItem::getControlFor(FXTable* table) {
  auto* box = new ChoiceEditor(table);
  box->create();
  for (const DBTableChoice& choice : *choices) box->appendItem(choice.text);
  box->setNumVisible(std::min(box->getNumItems(), kVisibleChoices));
  box->setCurrentItem(findKey(key));
  box->setText(label);
  return box;
}

// Two choices can have one text: then it is the one that was picked.
void DBTableChoiceItem::setFromControl(FXWindow* control) {
  const auto* box = static_cast<FXComboBox*>(control);
  const FXint picked = box->getCurrentItem();
  if (picked >= 0 && box->getItemText(picked) == box->getText())
    choose(picked);
  else
    setText(box->getText());
}

void DBTableChoiceItem::drawContent(const FXTable* table, FXDC& dc, FXint x, FXint y, FXint w, FXint h) const {
  if (table->isEditable()) {
    dc.setForeground(isSelected() ? table->getSelTextColor() : table->getShadowColor());
    drawArrow(dc, x + w - kArrowWidth - kArrowMargin, y + (h - kArrowHeight) / 2);
    w -= kArrowWidth + 2 * kArrowMargin;
  }
  FXTableItem::drawContent(table, dc, x, y, w, h);
}

FXint DBTableChoiceItem::findKey(const FXString& wanted) const {
  for (std::size_t index = 0; index < choices->size(); ++index) {
    if ((*choices)[index].key == wanted) return static_cast<FXint>(index);
  }
  return -1;
}

FXint DBTableChoiceItem::findText(FXString wanted) const {
  wanted.trim();
  for (std::size_t index = 0; index < choices->size(); ++index) {
    FXString offered = (*choices)[index].text;
    if (offered.trim() == wanted) return static_cast<FXint>(index);
  }
  return -1;
}

void DBTableChoiceItem::choose(FXint index) {
  if (index < 0 || index >= static_cast<FXint>(choices->size())) return;
  key = (*choices)[index].key;
  label = (*choices)[index].text;
}

DBTableCheckItem::DBTableCheckItem() : FXTableItem(kUnchecked) {}

void DBTableCheckItem::setText(const FXString& text) {
  FXString wanted = text;
  wanted.trim();
  if (wanted == kChecked)
    label = kChecked;
  else if (wanted.empty() || wanted == kUnchecked)
    label = kUnchecked;
}

bool DBTableCheckItem::isChecked() const { return FXIntVal(label) != 0; }

void DBTableCheckItem::toggle() { label = isChecked() ? kUnchecked : kChecked; }

FXWindow* DBTableCheckItem::getControlFor(FXTable*) { return nullptr; }

void DBTableCheckItem::drawContent(const FXTable* table, FXDC& dc, FXint x, FXint y, FXint w, FXint h) const {
  const FXint left = x + (w - kBoxSize) / 2;
  const FXint top = y + (h - kBoxSize) / 2;
  dc.setForeground(table->isEditable() ? table->getBackColor() : table->getBaseColor());
  dc.fillRectangle(left, top, kBoxSize, kBoxSize);
  dc.setForeground(table->getShadowColor());
  dc.drawRectangle(left, top, kBoxSize - 1, kBoxSize - 1);
  if (!isChecked()) return;
  dc.setForeground(table->getTextColor());
  drawTick(dc, left, top);
}

}  // namespace Quillane
