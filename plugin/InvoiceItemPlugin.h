#pragma once

#include "plugin/contract/PluginModule.h"

class TarnwellDatabase;

namespace Quillane::Plugin::ItemData {

/// Lets item data travel with invoice items: attaches an ItemDataList to an item when it is loaded, stores it with the
/// item, and adds it to the item's XML and printed text. All entities that it is given are invoice items.
class InvoiceItemPlugin : public EntityPlugin {
 public:
  using EntityPlugin::EntityPlugin;

  /// Attaches the item data when the item's article asks for any; on an item that has them already, only tells them the
  /// document's status. Returns 1 when they were there already, else 0.
  int load(Entity* entity) const override;

  /// Returns 1 when the item has item data, else 0.
  int save(Entity* entity) const override;

  bool canHandle(const FX::FXMetaClass& metaClassOfEntity) const override;

  /// Always returns 1.
  int toXml(Entity* entity, XMLBuilder::Element* element) const override;

  FX::FXString toString(Entity* entity) const override;

 private:
  TarnwellDatabase* getDB() const;
};

}  // namespace Quillane::Plugin::ItemData
