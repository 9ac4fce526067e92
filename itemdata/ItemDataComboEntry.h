#pragma once

#include "itemdata/ItemDataEntry.h"

namespace Quillane::Plugin::ItemData {

/// A value chosen from a list. The choices are the parts of vvalue between commas; before them comes a blank choice,
/// which means that nothing was chosen.
class ItemDataComboEntry : public ItemDataEntry {
  FXDECLARE(ItemDataComboEntry)
 public:
  /// The table cell of a list entry. The table owns it; its item data is the entry too.
  class ItemDataTableComboItem : public FX::FXComboTableItem {
   public:
    explicit ItemDataTableComboItem(ItemDataComboEntry* boundEntry);

    void setText(const FX::FXString& text) override;

    ItemDataComboEntry* entry;  // not owned, may be null
  };

  /// A prototype, or an entry of entity.
  explicit ItemDataComboEntry(Entity* entity = nullptr) : ItemDataEntry(entity) {}

  ItemDataComboEntry* clone(Entity* newOwner) const override;
  bool canHandleType(int variableType) const override;
  void addWidget(FX::FXComposite* parent, MemoryGuard<FX::FXDataTarget>& targets) override;
  FX::FXTableItem* getTableItem() override;

  /// The value, or nothing when the blank choice was taken.
  FX::FXString getValue() const override;

 private:
  ItemDataComboEntry(const ItemDataComboEntry& source, Entity* newOwner) : ItemDataEntry(source, newOwner) {}
};

}  // namespace Quillane::Plugin::ItemData
