// The date kind: a text field with a drop-down calendar.
#include "itemdata/ItemDataDateEntry.h"

#include "fxext/FXDateInput.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

FXIMPLEMENT(ItemDataDateEntry, FXObject, nullptr, 0)

namespace {

constexpr FXuint kInputOptions = FRAME_LINE | LAYOUT_FILL_X | LAYOUT_FILL_COLUMN;
static_assert(kInputOptions == 0x3401, "line frame, fills its width and its matrix column");

}  // namespace

ItemDataDateEntry* ItemDataDateEntry::clone(Entity* newOwner) const { return new ItemDataDateEntry(*this, newOwner); }

bool ItemDataDateEntry::canHandleType(int variableType) const { return variableType == TYPE_DATE; }

void ItemDataDateEntry::addWidget(FXComposite* parent, MemoryGuard<FXDataTarget>&) {
  // On purpose: the target lives as long as the process, outside the caller's guard.
  auto* target = new FXDataTarget(value);
  new FXExt::FXDateInput(parent, nullptr, target, FXDataTarget::ID_VALUE, kInputOptions, 0, 0, 0, 0, 2, 2, 2, 2);
}

}  // namespace Quillane::Plugin::ItemData
