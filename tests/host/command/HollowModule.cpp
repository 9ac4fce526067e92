// A module that goes by the name of the item data module and does nothing: what a host finds when the real one is
// broken inside.
#include "plugin/contract/PluginContainer.h"

extern "C" __attribute__((visibility("default"))) Quillane::Plugin::PluginContainer* get_plugin(
    Quillane::Tarnwell* account) {
  return new Quillane::Plugin::PluginContainer(account, "QuillanePluginItemData", "Hollow", "0", "");
}
