// The text kind: a plain text field, and the quantities of unit rows.
#include "itemdata/ItemDataStringEntry.h"

#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

FXIMPLEMENT(ItemDataStringEntry, FXObject, nullptr, 0)

namespace {

constexpr FXuint kFieldOptions = FRAME_LINE | LAYOUT_FILL_X | LAYOUT_FILL_COLUMN;
static_assert(kFieldOptions == 0x3401, "line frame, fills its width and its matrix column");

}  // namespace

ItemDataStringEntry* ItemDataStringEntry::clone(Entity* newOwner) const {
  return new ItemDataStringEntry(*this, newOwner);
}

bool ItemDataStringEntry::canHandleType(int variableType) const {
  return variableType == TYPE_TEXT || variableType == TYPE_QUANTITY;
}

void ItemDataStringEntry::addWidget(FXComposite* parent, MemoryGuard<FXDataTarget>& targets) {
  auto* target = new FXDataTarget(value);
  targets.append(target);
  new FXTextField(parent, 2, target, FXDataTarget::ID_VALUE, kFieldOptions, 0, 0, 0, 0, 2, 2, 2, 2);
}

FXString ItemDataStringEntry::getPrintableText() const {
  if (type != TYPE_QUANTITY) return value;
  if (value.empty() || value == "0" || value == "1") return FXString::null;
  return value + " " + getItem()->getUnit();
}

}  // namespace Quillane::Plugin::ItemData
