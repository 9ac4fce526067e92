#pragma once

#include "itemdata/ItemDataEntry.h"

namespace Quillane::Plugin::ItemData {

/// A value typed as text; also the quantity of a unit row.
class ItemDataStringEntry : public ItemDataEntry {
  FXDECLARE(ItemDataStringEntry)
 public:
  /// A prototype, or an entry of entity.
  explicit ItemDataStringEntry(Entity* entity = nullptr) : ItemDataEntry(entity) {}

  ItemDataStringEntry* clone(Entity* newOwner) const override;
  bool canHandleType(int variableType) const override;
  void addWidget(FX::FXComposite* parent, MemoryGuard<FX::FXDataTarget>& targets) override;

  /// The value; for a quantity the value with the item's unit, and nothing for none, 0 and 1.
  FX::FXString getPrintableText() const override;

 private:
  ItemDataStringEntry(const ItemDataStringEntry& source, Entity* newOwner) : ItemDataEntry(source, newOwner) {}
};

}  // namespace Quillane::Plugin::ItemData
