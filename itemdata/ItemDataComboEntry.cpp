// The list kind: a combo box in a form, a combo cell in a table.
#include "itemdata/ItemDataComboEntry.h"

#include "fxext/FXComboBox.h"
#include "fxext/FXStringIterator.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

FXIMPLEMENT(ItemDataComboEntry, FXObject, nullptr, 0)

namespace {

constexpr FXuint kFrameOptions = FRAME_LINE | LAYOUT_FILL_X | LAYOUT_FILL_COLUMN;
static_assert(kFrameOptions == 0x3401, "line frame, fills its width and its matrix column");

constexpr FXuint kComboOptions = COMBOBOX_STATIC | LAYOUT_FILL_X | LAYOUT_FILL_COLUMN;
static_assert(kComboOptions == 0x100401, "static combo box, fills its width and its matrix column");

constexpr int kMostVisibleChoices = 10;

const FXString kBlankChoice = " ";
const FXString kBlankFirst = " ,";  // before the choices of a parameter

}  // namespace

ItemDataComboEntry::ItemDataTableComboItem::ItemDataTableComboItem(ItemDataComboEntry* boundEntry)
    : FXComboTableItem(FXString::null, nullptr, boundEntry), entry(nullptr) {
  // The entry is bound last, because setting the choices sets the text to the first of them.
  FXString choices = kBlankFirst + boundEntry->vvalue;
  setSelections(choices.substitute('\n', ' ').substitute(',', '\n'));
  setJustify(FXTableItem::LEFT);
  FXTableItem::setText(boundEntry->value);
  entry = boundEntry;
}

void ItemDataComboEntry::ItemDataTableComboItem::setText(const FXString& text) {
  FXTableItem::setText(text);
  if (entry) entry->value = text;
}

ItemDataComboEntry* ItemDataComboEntry::clone(Entity* newOwner) const {
  return new ItemDataComboEntry(*this, newOwner);
}

bool ItemDataComboEntry::canHandleType(int variableType) const { return variableType == TYPE_LIST; }

void ItemDataComboEntry::addWidget(FXComposite* parent, MemoryGuard<FXDataTarget>& targets) {
  auto* target = new FXDataTarget(value);
  targets.append(target);
  auto* frame = new FXHorizontalFrame(parent, kFrameOptions, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  auto* combo = new FXExt::FXComboBox(frame, 2, target, FXDataTarget::ID_VALUE, kComboOptions, 0, 0, 0, 0, 2, 2, 2, 2);
  combo->appendItem(kBlankChoice);
  for (FXExt::FXStringIterator choice(vvalue, ',', 0); choice.hasNext(); ++choice) {
    combo->appendItem(choice.get().trim());
    combo->setNumVisible(choice.getPos() > 7 ? kMostVisibleChoices : choice.getPos() + 2);
  }
}

FXTableItem* ItemDataComboEntry::getTableItem() { return new ItemDataTableComboItem(this); }

FXString ItemDataComboEntry::getValue() const { return value == kBlankChoice ? FXString::null : value; }

}  // namespace Quillane::Plugin::ItemData
