#pragma once

#include <fx.h>

#include "itemdata/ItemDataEntry.h"

namespace Quillane::Plugin::ItemData {

/// The registry of field kinds: one prototype of each, in the order of registration. It does not own the prototypes;
/// whoever registered them deletes them.
class ItemDataPluginList : public FX::FXObjectListOf<ItemDataEntry> {
 public:
  /// A new entry of the first kind that handles type, for owner; null when no kind does. Owned by the caller.
  ItemDataEntry* getByType(int type, Entity* owner);
};

/// The module's one registry; empty until the container's init registers the kinds.
extern ItemDataPluginList plugins;

}  // namespace Quillane::Plugin::ItemData
