// The text kind: a plain text field, and the quantities of unit rows.
#include "itemdata/ItemDataStringEntry.h"

#include <string>

#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

FXIMPLEMENT(ItemDataStringEntry, FXObject, nullptr, 0)

namespace {

// None, "0" and "1".
bool isUnprinted(const FXString& quantity) {
  return quantity.empty() || (quantity.length() == 1 && (quantity[0] == '0' || quantity[0] == '1'));
}

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
  if (isUnprinted(value)) return FXString::null;
  // A standard string takes no memory while it is short; the toolkit's takes it anew with every part.
  const FXString& unit = getItem()->getUnit();
  std::string text(value.text(), value.length());
  text.append(1, ' ').append(unit.text(), unit.length());
  return FXString(text.data(), static_cast<FXint>(text.size()));
}

}  // namespace Quillane::Plugin::ItemData
