// The registry of field kinds, from which every entry is made.
#include "itemdata/ItemDataPluginList.h"

namespace Quillane::Plugin::ItemData {

ItemDataPluginList plugins;

ItemDataEntry* ItemDataPluginList::getByType(int type, Entity* owner) {
  for (FX::FXint i = 0; i < no(); ++i) {
    if (!at(i)->canHandleType(type)) continue;
    ItemDataEntry* entry = at(i)->clone(owner);
    entry->type = type;
    return entry;
  }
  return nullptr;
}

}  // namespace Quillane::Plugin::ItemData
