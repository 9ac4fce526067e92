#pragma once

#include "itemdata/ItemDataEntry.h"

namespace Quillane::Plugin::ItemData {

/// A date, kept as the text that the date input writes ("2024.05.06").
class ItemDataDateEntry : public ItemDataEntry {
  FXDECLARE(ItemDataDateEntry)
 public:
  /// A prototype, or an entry of entity.
  explicit ItemDataDateEntry(Entity* entity = nullptr) : ItemDataEntry(entity) {}

  ItemDataDateEntry* clone(Entity* newOwner) const override;
  bool canHandleType(int variableType) const override;

  /// As for every kind, but the data target does not go to targets: nobody deletes it.
  void addWidget(FX::FXComposite* parent, MemoryGuard<FX::FXDataTarget>& targets) override;

 private:
  ItemDataDateEntry(const ItemDataDateEntry& source, Entity* newOwner) : ItemDataEntry(source, newOwner) {}
};

}  // namespace Quillane::Plugin::ItemData
